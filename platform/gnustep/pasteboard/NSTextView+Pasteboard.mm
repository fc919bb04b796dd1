#import <AppKit/AppKit.h>

#import "platform/gnustep/pasteboard/NSPasteboard+Timeouts.h"
#import "platform/gnustep/runtime/MethodReplacement.h"

namespace {

constinit platform::ReplacedMethod<BOOL(id<NSValidatedUserInterfaceItem>)> platformValidate;

}  // namespace

// Replacing the platform's own method is the point.
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"

@implementation NSText (Pasteboard)

/// Deletes the text only when it has been copied.
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

/// The platform validates the main menu after each event, which would block for seconds while the
/// pasteboard server hangs. Then only the command itself asks the server again.
- (BOOL)validateUserInterfaceItemWithoutServer:(id<NSValidatedUserInterfaceItem>)item {
  if (sel_isEqual([item action], @selector(paste:)) && [NSPasteboard isServerUnresponsive]) {
    return [self isEditable];
  }
  return platformValidate(self, _cmd, item);
}

@end
