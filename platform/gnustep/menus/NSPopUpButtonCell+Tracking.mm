#import <AppKit/AppKit.h>

#import "platform/gnustep/menus/MenuTracking.h"

// On the Mac a click on a pop-up button opens its menu and leaves it open. The platform's own
// tracking closes it at the first release, and chooses the item that happens to lie under the
// mouse, which at the button's edge is not the one whose title the button shows.
//
// Replacing the platform's own methods is the point.
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"
@implementation NSPopUpButtonCell (Tracking)

/// NO when nothing was chosen.
- (BOOL)trackMouse:(NSEvent *)event
            inRect:(NSRect)frame
            ofView:(NSView *)view
      untilMouseUp:(BOOL)untilMouseUp {
  (void)untilMouseUp;
  if (![self isEnabled]) return NO;
  if ([[self menu] numberOfItems] == 0) {
    NSBeep();
    return NO;
  }
  // The action may release the pop-up, as reloading a list does.
  [[self retain] autorelease];
  [[view retain] autorelease];
  // It may have been opened by keyboard.
  [self dismissPopUp];
  [self attachPopUpWithFrame:frame inView:view];
  const NSInteger chosen = MenuTracking(self, frame, view, event).chosenItem();
  [self dismissPopUp];
  if (chosen == NSNotFound) return NO;
  // Before the action, which may take a while.
  [self selectItemAtIndex:chosen];
  [self synchronizeTitleAndSelectedItem];
  [[self menu] performActionForItemAtIndex:chosen];
  return YES;
}

@end
