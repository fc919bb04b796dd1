#import <AppKit/AppKit.h>

#import "platform/gnustep/TokenEditor.h"

// Replacing the platform's own method is the point.
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"
@implementation NSWindow (TokenKeys)

/// The platform offers every key to the window's buttons before the text being edited sees it, so
/// Return could not finish a token where there is a default button. On macOS only keys with Command
/// go this way.
- (BOOL)performKeyEquivalent:(NSEvent *)event {
  NSResponder *const responder = [self firstResponder];
  if ([responder isKindOfClass:[TokenEditor class]] &&
      [static_cast<TokenEditor *>(responder) wantsKeyEquivalent:event]) {
    return NO;
  }
  return [[self contentView] performKeyEquivalent:event];
}

@end
