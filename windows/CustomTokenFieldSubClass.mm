#import "windows/CustomTokenFieldSubClass.h"

#include "windows/EditingKeys.h"

@implementation CustomTokenFieldSubClass

- (BOOL)performKeyEquivalent:(NSEvent *)event {
  return performEditingKey(self, event);
}

@end
