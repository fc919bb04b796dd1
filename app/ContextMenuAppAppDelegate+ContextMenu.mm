#import "app/ContextMenuAppAppDelegate.h"

namespace {

// Letter for letter: a platform may know this script and no other. Each path is followed by a line
// feed, which stands as it is between the quotation marks.
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

/// In points. The menu needs a window to be popped up for; how large does not matter.
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

/// As if the left button had been pressed there.
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
  // The last line feed makes a last, empty element. It stays: callers use the first one only.
  return [[[result stringValue] componentsSeparatedByString:@"\n"] retain];
}

- (void)showContextMenu {
  const NSPoint pointer = [NSEvent mouseLocation];
  NSWindow *const anchor = newAnchorAt(pointer);
  [anchor makeKeyAndOrderFront:NSApp];
  NSEvent *const press = pressAt([anchor convertScreenToBase:pointer], anchor);
  [NSMenu popUpContextMenu:krvContextMenu withEvent:press forView:[anchor contentView]];
  // The anchor stays for the rest of the process, on purpose.
  // NOLINTNEXTLINE(clang-analyzer-osx.cocoa.RetainCount): see above
}

- (void)showError {
  NSLog(@"filepath cannot be matched");
  [self hideMe];
}

@end
