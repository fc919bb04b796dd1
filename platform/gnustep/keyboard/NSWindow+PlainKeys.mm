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

/// Whether the event is the Enter key of the number pad, without Command.
bool isEnter(NSEvent *event) {
  constexpr unichar kEnter = NSEnterCharacter;
  NSString *const characters = [event charactersIgnoringModifiers];
  return ([event modifierFlags] & NSCommandKeyMask) == 0 && [characters length] == 1 &&
         [characters characterAtIndex:0] == kEnter;
}

NSEvent *returnInsteadOf(NSEvent *event) {
  return [NSEvent keyEventWithType:[event type]
                          location:[event locationInWindow]
                     modifierFlags:[event modifierFlags] & ~NSNumericPadKeyMask
                         timestamp:[event timestamp]
                      windowNumber:[event windowNumber]
                           context:[event context]
                        characters:@"\r"
       charactersIgnoringModifiers:@"\r"
                         isARepeat:[event isARepeat]
                           keyCode:[event keyCode]];
}

}  // namespace

// The platform's windows try an unhandled key as a shortcut, as if Command were pressed: "c" typed
// over the selected text of a label would copy it. On the Mac a shortcut needs its Command key.
// There Enter presses the button whose key equivalent is Return.
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
  if ([[self contentView] performKeyEquivalent:event]) return YES;
  return isEnter(event) && [[self contentView] performKeyEquivalent:returnInsteadOf(event)];
}

@end
