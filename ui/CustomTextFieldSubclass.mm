#import "ui/CustomTextFieldSubclass.h"

#include "ui/EditingKeys.h"

@implementation CustomTextFieldSubclass

- (BOOL)performKeyEquivalent:(NSEvent *)event {
  return performEditingKey(self, event);
}

@end
