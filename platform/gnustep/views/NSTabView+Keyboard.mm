#import "platform/gnustep/views/NSTabView+Keyboard.h"

@implementation NSTabView (Keyboard)

- (BOOL)acceptsFirstResponder {
  // A click on a tab or between the contents does not change the first responder.
  const NSEventType type = [[NSApp currentEvent] type];
  return type != NSLeftMouseDown && [[self tabViewItems] count] > 1;
}

- (BOOL)becomeFirstResponder {
  [self setNeedsDisplay:YES];
  return YES;
}

- (BOOL)resignFirstResponder {
  [self setNeedsDisplay:YES];
  return YES;
}

- (void)keyDown:(NSEvent *)event {
  NSString *const characters = [event charactersIgnoringModifiers];
  const unichar key = [characters length] == 1 ? [characters characterAtIndex:0] : 0;
  switch (key) {
    case NSLeftArrowFunctionKey:
      return [self selectNeighbour:-1];
    case NSRightArrowFunctionKey:
      return [self selectNeighbour:1];
    default:
      [super keyDown:event];
  }
}

/// Selects the tab `step` further, if there is one, and stays first responder, which the platform
/// makes a control of the selected tab.
- (void)selectNeighbour:(NSInteger)step {
  const NSInteger next = [self indexOfTabViewItem:[self selectedTabViewItem]] + step;
  if (next < 0 || next >= [self numberOfTabViewItems]) return;
  [self selectTabViewItemAtIndex:next];
  [[self window] makeFirstResponder:self];
}

@end
