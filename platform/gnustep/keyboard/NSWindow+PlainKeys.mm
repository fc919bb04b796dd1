#import <AppKit/AppKit.h>

#import "platform/gnustep/keyboard/NSTextView+PlainKeys.h"
#import "platform/gnustep/runtime/MethodReplacement.h"

namespace {

constinit platform::ReplacedMethod<void(NSEvent *)> platformKeyDown;

/// The key without Command that a window is looking at because nobody in it wanted it.
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

/// Whether the event is the unwanted key once more, with a Command key that nobody holds.
bool isUnwantedKeyWithCommand(NSEvent *event) {
  return unwantedPlainKey != nil &&
         [event modifierFlags] == ([unwantedPlainKey modifierFlags] | NSCommandKeyMask) &&
         [event keyCode] == [unwantedPlainKey keyCode] &&
         [event timestamp] == [unwantedPlainKey timestamp];
}

/// Whether the key belongs to the text that has the keyboard, whatever button answers to it.
bool isForText(NSResponder *responder, NSEvent *event) {
  return [responder isKindOfClass:[NSTextView class]] &&
         [static_cast<NSTextView *>(responder) wantsKeyEquivalent:event];
}

}  // namespace

// Where nobody wants a key, the platform's windows try it as a shortcut, with the Command key
// thought in addition: "c" typed over the selected text of a label would copy it. On the Mac a
// shortcut needs its Command key.
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
  // The platform offers every key to the window's buttons before the text being edited sees it. On
  // the Mac only keys with Command go this way.
  if (isForText([self firstResponder], event)) return NO;
  return [[self contentView] performKeyEquivalent:event];
}

@end
