#import <AppKit/AppKit.h>

namespace {

constexpr unichar kEscape = 0x1B;
constexpr unichar kFirstFunctionKey = 0xF700;
constexpr unichar kLastFunctionKey = 0xF8FF;

/// Whether the key inserts text, as arrows, Tab, Return and the like do not.
bool writesText(NSEvent *event) {
  NSString *const characters = [event charactersIgnoringModifiers];
  if ([characters length] == 0) return false;
  const unichar character = [characters characterAtIndex:0];
  if (character >= kFirstFunctionKey && character <= kLastFunctionKey) return false;
  return ![[NSCharacterSet controlCharacterSet] characterIsMember:character];
}

/// The command of a key for which the platform's key bindings have none or another one; NULL for
/// all other keys.
SEL commandOf(NSEvent *event) {
  constexpr NSUInteger kOthers =
      NSShiftKeyMask | NSControlKeyMask | NSAlternateKeyMask | NSCommandKeyMask;
  const NSUInteger others = [event modifierFlags] & kOthers;
  NSString *const characters = [event charactersIgnoringModifiers];
  switch ([characters length] == 1 ? [characters characterAtIndex:0] : 0) {
    case kEscape:
      return others == 0 ? @selector(cancelOperation:) : NULL;
    case NSTabCharacter:
      return others == NSAlternateKeyMask || others == NSCommandKeyMask ? @selector
                 (insertTabIgnoringFieldEditor:)
                                                                        : NULL;
    default:
      return NULL;
  }
}

}  // namespace

// The keys of a text view as on the Mac. An unhandled shortcut must not insert a letter: the
// platform's text views ignore the Command key. In a text of several lines Escape sends
// cancelOperation:, and Tab with a modifier inserts a tab.
//
// Replacing the platform's own method is the point.
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"
@implementation NSTextView (CommandKeys)

- (void)keyDown:(NSEvent *)event {
  const bool isCommand = ([event modifierFlags] & NSCommandKeyMask) != 0;
  if (![self isEditable] || (isCommand && writesText(event))) {
    [super keyDown:event];
  } else if (SEL const command = [self isFieldEditor] ? NULL : commandOf(event)) {
    [self doCommandBySelector:command];
  } else {
    [self interpretKeyEvents:[NSArray arrayWithObject:event]];
  }
}

/// The default for Escape, if the delegate does not handle it.
- (void)cancelOperation:(id)sender {
  [self complete:sender];
}

@end
