#import <AppKit/AppKit.h>

#import "platform/gnustep/runtime/MethodReplacement.h"

namespace {

constinit platform::ReplacedMethod<id(NSString *)> platformInit;

}  // namespace

// On the Mac text fields allow undo from the start.
@implementation NSTextFieldCell (Undo)

+ (void)load {
  platformInit.install(self, @selector(initTextCell:), @selector(initTextCellThatAllowsUndo:));
}

- (id)initTextCellThatAllowsUndo:(NSString *)text {
  self = platformInit(self, _cmd, text);
  [self setAllowsUndo:YES];
  return self;
}

@end
