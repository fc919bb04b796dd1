#import <AppKit/AppKit.h>

namespace {

constexpr unichar kEscape = 0x1B;
constexpr unichar kFirstFunctionKey = 0xF700;
constexpr unichar kLastFunctionKey = 0xF8FF;

/// Whether the key writes something, as arrows, Tab, Return and the like do not.
bool writesText(NSEvent *event) {
  NSString *const characters = [event charactersIgnoringModifiers];
  if ([characters length] == 0) return false;
  const unichar character = [characters characterAtIndex:0];
  if (character >= kFirstFunctionKey && character <= kLastFunctionKey) return false;
  return ![[NSCharacterSet controlCharacterSet] characterIsMember:character];
}

/// The command that the platform's table of keys has another one for, or none; NULL for all other
/// keys.
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

// The keys of a text view as on the Mac. A shortcut that nobody took must not end as a letter in
// the text: the platform's text views do not look at the Command key. In a text of several lines
// Escape is a command of its own, which its delegate may take, and Tab with another key writes a
// tab.
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

/// What Escape does in a text whose delegate does not want it.
- (void)cancelOperation:(id)sender {
  [self complete:sender];
}

@end
