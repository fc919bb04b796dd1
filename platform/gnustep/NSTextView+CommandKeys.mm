#import <AppKit/AppKit.h>

namespace {

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

}  // namespace

// A shortcut that nobody took must not end as a letter in the text: the platform's text views do
// not look at the Command key.
//
// Replacing the platform's own method is the point.
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"
@implementation NSTextView (CommandKeys)

- (void)keyDown:(NSEvent *)event {
  const bool isCommand = ([event modifierFlags] & NSCommandKeyMask) != 0;
  if (![self isEditable] || (isCommand && writesText(event))) {
    [super keyDown:event];
  } else {
    [self interpretKeyEvents:[NSArray arrayWithObject:event]];
  }
}

@end
