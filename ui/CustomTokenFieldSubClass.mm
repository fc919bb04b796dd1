#import "ui/CustomTokenFieldSubClass.h"

#include "ui/EditingKeys.h"

@implementation CustomTokenFieldSubClass

- (BOOL)performKeyEquivalent:(NSEvent *)event {
  return performEditingKey(self, event);
}

@end
