#import "windows/CustomTextFieldSubclass.h"

#include "windows/EditingKeys.h"

@implementation CustomTextFieldSubclass

- (BOOL)performKeyEquivalent:(NSEvent *)event {
  return performEditingKey(self, event);
}

@end
