#import <AppKit/AppKit.h>

#include "platform/gnustep/runtime/OwnMethod.h"

// On the Mac text fields allow undo from the start.
//
// Replacing the platform's own method is the point.
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"
@implementation NSTextFieldCell (Undo)

- (id)initTextCell:(NSString *)text {
  using InitTextCell = id (*)(id, SEL, NSString *);
  static const auto platformsInit = ownMethod<InitTextCell>([NSTextFieldCell class], _cmd);
  self = platformsInit(self, _cmd, text);
  [self setAllowsUndo:YES];
  return self;
}

@end
