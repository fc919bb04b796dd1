#import "app/ContextMenuAppAppDelegate.h"

namespace {

// Fixed letter for letter: a platform may implement this script only. The line feed after each path
// is a literal one between the quotation marks.
constexpr char kSelectionScript[] = "property stdout : \"\"\n"
                                    "tell application \"Finder\"\n"
                                    "copy selection to selectedItems\n"
                                    "if ((count of selectedItems) > 0) then\n"
                                    "repeat with x in selectedItems\n"
                                    "set itemN to (POSIX path of (x as alias))\n"
                                    "set stdout to stdout & itemN & \"\n"
                                    "\"\n"
                                    "end repeat\n"
                                    "else\n"
                                    "end if\n"
                                    "stdout\n"
                                    "end tell";
static_assert(sizeof kSelectionScript - 1 == 264);

/// In points. The menu needs a window of any size to pop up in.
constexpr CGFloat kAnchorSide = 200.0;

/// An invisible window whose lower left corner is at a place of the screen.
NSWindow *newAnchorAt(NSPoint place) NS_RETURNS_RETAINED;
NSWindow *newAnchorAt(NSPoint place) {
  NSWindow *const anchor =
      [[NSWindow alloc] initWithContentRect:NSMakeRect(place.x, place.y, kAnchorSide, kAnchorSide)
                                  styleMask:NSBorderlessWindowMask
                                    backing:NSBackingStoreBuffered
                                      defer:NO];
  [anchor setAlphaValue:0.0];
  return anchor;
}

/// An event as of a press of the left button at this place.
NSEvent *pressAt(NSPoint place, NSWindow *window) {
  return [NSEvent mouseEventWithType:NSLeftMouseDown
                            location:place
                       modifierFlags:0
                           timestamp:0.0
                        windowNumber:[window windowNumber]
                             context:nil
                         eventNumber:0
                          clickCount:0
                            pressure:0.0];
}

}  // namespace

@implementation ContextMenuAppAppDelegate (ContextMenu)

- (NSArray *)getSelectedFilesList {
  NSString *const source = [NSString stringWithUTF8String:kSelectionScript];
  NSAppleScript *const script = [[[NSAppleScript alloc] initWithSource:source] autorelease];
  if (![script compileAndReturnError:nullptr]) return nil;
  NSAppleEventDescriptor *const result = [script executeAndReturnError:nullptr];
  if (result == nil) return nil;
  // The last line feed gives an empty last element, which does no harm: callers use the first.
  return [[[result stringValue] componentsSeparatedByString:@"\n"] retain];
}

- (void)showContextMenu {
  const NSPoint pointer = [NSEvent mouseLocation];
  NSWindow *const anchor = newAnchorAt(pointer);
  [NSApp unhideWithoutActivation];
  [anchor makeKeyAndOrderFront:NSApp];
  NSEvent *const press = pressAt([anchor convertScreenToBase:pointer], anchor);
  [NSMenu popUpContextMenu:krvContextMenu withEvent:press forView:[anchor contentView]];
  // Deliberately never released.
  // NOLINTNEXTLINE(clang-analyzer-osx.cocoa.RetainCount): see above
}

- (void)showError {
  NSLog(@"filepath cannot be matched");
  [self hideMe];
}

@end
