#import <AppKit/AppKit.h>

#import "platform/gnustep/pasteboard/NSPasteboard+Timeouts.h"
#import "platform/gnustep/runtime/MethodReplacement.h"

namespace {

constinit platform::ReplacedMethod<BOOL(id<NSValidatedUserInterfaceItem>)> platformValidate;

}  // namespace

// Replacing the platform's own method is the point.
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"

@implementation NSText (Pasteboard)

/// What could not be put on the clipboard stays in the text.
- (void)cut:(id)sender {
  const NSUInteger before = [NSPasteboard timedOutRequests];
  [self copy:sender];
  if ([NSPasteboard timedOutRequests] == before) {
    [self delete:sender];
  } else {
    NSBeep();
  }
}

@end

@implementation NSTextView (Pasteboard)

+ (void)load {
  platformValidate.install(self, @selector(validateUserInterfaceItem:),
                           @selector(validateUserInterfaceItemWithoutServer:));
}

/// The platform asks this of the main menu's items after each event. While the pasteboard's server
/// is known to hang, each would wait seconds for it: then only the user's own try asks it again.
- (BOOL)validateUserInterfaceItemWithoutServer:(id<NSValidatedUserInterfaceItem>)item {
  if (sel_isEqual([item action], @selector(paste:)) && [NSPasteboard isServerUnresponsive]) {
    return [self isEditable];
  }
  return platformValidate(self, _cmd, item);
}

@end
