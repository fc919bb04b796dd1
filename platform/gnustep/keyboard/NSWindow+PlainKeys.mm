#import <AppKit/AppKit.h>

#import "platform/gnustep/keyboard/NSTextView+PlainKeys.h"
#import "platform/gnustep/runtime/MethodReplacement.h"

namespace {

constinit platform::ReplacedMethod<void(NSEvent *)> platformKeyDown;

/// The key event without Command that no responder has handled and the window is handling.
NSEvent *unwantedPlainKey = nil;

class UnwantedPlainKey {
 public:
  explicit UnwantedPlainKey(NSEvent *event) : outer_(unwantedPlainKey) {
    const bool isPlain = ([event modifierFlags] & NSCommandKeyMask) == 0;
    unwantedPlainKey = isPlain ? event : nil;
  }
  ~UnwantedPlainKey() { unwantedPlainKey = outer_; }
  UnwantedPlainKey(const UnwantedPlainKey &) = delete;
  UnwantedPlainKey &operator=(const UnwantedPlainKey &) = delete;

 private:
  NSEvent *outer_;
};

/// Whether the event is the same key again, with a Command key that is not pressed.
bool isUnwantedKeyWithCommand(NSEvent *event) {
  return unwantedPlainKey != nil &&
         [event modifierFlags] == ([unwantedPlainKey modifierFlags] | NSCommandKeyMask) &&
         [event keyCode] == [unwantedPlainKey keyCode] &&
         [event timestamp] == [unwantedPlainKey timestamp];
}

/// Whether the first responder is a text that handles the key, even if it is the key equivalent of
/// a button.
bool isForText(NSResponder *responder, NSEvent *event) {
  return [responder isKindOfClass:[NSTextView class]] &&
         [static_cast<NSTextView *>(responder) wantsKeyEquivalent:event];
}

}  // namespace

// The platform's windows try an unhandled key as a shortcut, as if Command were pressed: "c" typed
// over the selected text of a label would copy it. On the Mac a shortcut needs its Command key.
//
// Replacing the platform's own methods is the point.
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"
@implementation NSWindow (PlainKeys)

+ (void)load {
  platformKeyDown.install(self, @selector(keyDown:), @selector(keyDownWithoutShortcuts:));
}

- (void)keyDownWithoutShortcuts:(NSEvent *)event {
  const UnwantedPlainKey scope(event);
  platformKeyDown(self, _cmd, event);
}

- (BOOL)performKeyEquivalent:(NSEvent *)event {
  if (isUnwantedKeyWithCommand(event)) return NO;
  // The platform sends every key to the buttons of the window before the text that is edited. On
  // the Mac only keys with Command are.
  if (isForText([self firstResponder], event)) return NO;
  return [[self contentView] performKeyEquivalent:event];
}

@end
