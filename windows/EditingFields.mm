#import "windows/EditingFields.h"

#include "windows/EditingKeys.h"

@implementation CustomTextFieldSubclass

- (BOOL)performKeyEquivalent:(NSEvent *)event {
  return performEditingKey(self, event);
}

@end

@implementation CustomTokenFieldSubClass

- (BOOL)performKeyEquivalent:(NSEvent *)event {
  return performEditingKey(self, event);
}

@end
