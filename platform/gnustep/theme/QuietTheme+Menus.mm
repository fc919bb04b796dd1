#include <algorithm>
#include <cmath>

#import "platform/gnustep/theme/ButtonShape.h"
#import "platform/gnustep/theme/QuietTheme.h"
#include "platform/gnustep/theme/ThemeDrawing.h"
#import "platform/gnustep/theme/ThemeImages.h"

namespace {

constexpr double kItemHeight = 22;
constexpr double kSeparatorHeight = 11;
constexpr double kHighlightInset = 4;
constexpr double kHighlightRadius = 4;
/// From the visible edge of a pop-up button to its text, and from its text to the arrows.
constexpr double kPopUpTextMargin = 9;
constexpr double kPopUpArrowsWidth = 20;
/// The platform's space left of an item for the borders of the menu and of the item.
constexpr double kItemBorders = 2;

NSDictionary *titleAttributes(NSCell *cell) {
  const theme::Rgb ink = [cell isEnabled] ? theme::kText : theme::kTextDisabled;
  return @{
    NSFontAttributeName : [cell font] ?: [NSFont systemFontOfSize:0],
    NSForegroundColorAttributeName : theme::color(ink)
  };
}

NSRect popUpTextRect(NSRect visible) {
  return NSMakeRect(NSMinX(visible) + kPopUpTextMargin, NSMinY(visible),
                    NSWidth(visible) - kPopUpTextMargin - kPopUpArrowsWidth, NSHeight(visible));
}

/// On the Mac the selected item has a tick. The platform sets it only in menus from an interface
/// file.
void tickSelectedItem(NSMenu *menu, int selected) {
  NSImage *const tick = [NSImage imageNamed:@"NSMenuCheckmark"];
  int index = 0;
  for (NSMenuItem *item in [menu itemArray]) {
    const NSInteger state = index == selected ? NSOnState : NSOffState;
    if ([item onStateImage] != tick) [item setOnStateImage:tick];
    if ([item state] != state) [item setState:state];
    ++index;
  }
}

NSRect scaled(NSRect rect, double factor) {
  return NSMakeRect(NSMinX(rect) * factor, NSMinY(rect) * factor, NSWidth(rect) * factor,
                    NSHeight(rect) * factor);
}

/// Resizes the window of an open menu to its items, for all of which the platform assumes the
/// height of the button, and keeps it on the screen. `button`: on the screen, whose unit is pixels.
/// `selected`: negative for a pull-down menu, else the item that lies over the button.
void fitWindow(NSMenuView *menuView, NSRect button, int selected) {
  NSWindow *const window = [menuView window];
  const NSRect screen = [([window screen] ?: [NSScreen mainScreen]) visibleFrame];
  NSRect frame = [window frame];
  const double top = NSMaxY(frame);
  // The first item of a pull-down menu is the title of the button and not shown.
  const NSRect first = [menuView rectOfItemAtIndex:selected < 0 ? 1 : 0];
  const double scale = [window userSpaceScaleFactor];
  frame.size.height = (NSMaxY(first) + 1) * scale;
  frame.origin.y = selected < 0
                       ? top - NSHeight(frame)
                       : NSMinY(button) - NSMinY([menuView rectOfItemAtIndex:selected]) * scale;
  frame.origin.y = std::min(NSMinY(frame), NSMaxY(screen) - NSHeight(frame));
  frame.origin.y = std::max(NSMinY(frame), NSMinY(screen));
  frame.origin.x = std::min(NSMinX(frame), NSMaxX(screen) - NSWidth(frame));
  frame.origin.x = std::max(NSMinX(frame), NSMinX(screen));
  if (!NSEqualRects(frame, [window frame])) [window setFrame:frame display:YES];
}

}  // namespace

@implementation QuietTheme (Menus)

- (NSColor *)menuBackgroundColor {
  return theme::color(theme::kMenu);
}

- (NSColor *)menuItemBackgroundColor {
  return theme::color(theme::kMenu);
}

- (NSColor *)menuBorderColor {
  return theme::color(theme::kLine);
}

- (NSColor *)menuBorderColorForEdge:(NSRectEdge)edge isHorizontal:(BOOL)isHorizontal {
  (void)edge;
  (void)isHorizontal;
  return theme::color(theme::kLine);
}

- (CGFloat)menuItemHeight {
  return kItemHeight;
}

- (CGFloat)menuSeparatorHeight {
  return kSeparatorHeight;
}

/// The platform expects that a menu is popped up by a press of the mouse and ignores its release,
/// which would be that of the user's first click if the program has created the press (its click
/// count is 0). So this posts a release for such a press.
- (void)rightMouseDisplay:(NSMenu *)menu forEvent:(NSEvent *)event {
  const bool waitsForEnd =
      NSInterfaceStyleForKey(@"NSMenuInterfaceStyle", nil) == NSWindows95InterfaceStyle;
  if (waitsForEnd && [event clickCount] == 0) {
    [NSApp postEvent:[NSEvent mouseEventWithType:NSLeftMouseUp
                                        location:[event locationInWindow]
                                   modifierFlags:0
                                       timestamp:[event timestamp]
                                    windowNumber:[event windowNumber]
                                         context:nil
                                     eventNumber:0
                                      clickCount:0
                                        pressure:0]
             atStart:YES];
  }
  [super rightMouseDisplay:menu forEvent:event];
}

- (void)drawSeparatorItemForMenuItemCell:(NSMenuItemCell *)cell
                               withFrame:(NSRect)frame
                                  inView:(NSView *)view
                            isHorizontal:(BOOL)isHorizontal {
  (void)cell;
  (void)isHorizontal;
  const double y = std::floor(NSMidY(frame));
  [theme::color(theme::kLineFaint) set];
  NSRectFill(NSMakeRect(kPopUpTextMargin, y, NSWidth([view bounds]) - 2 * kPopUpTextMargin, 1));
}

- (void)drawBorderAndBackgroundForMenuItemCell:(NSMenuItemCell *)cell
                                     withFrame:(NSRect)frame
                                        inView:(NSView *)view
                                         state:(GSThemeControlState)state
                                  isHorizontal:(BOOL)isHorizontal {
  (void)state;
  (void)isHorizontal;
  // The menu has drawn the background and the border.
  if (![cell isHighlighted] || ![cell isEnabled]) return;
  const NSRect bounds = [view bounds];
  const NSRect row = NSMakeRect(NSMinX(bounds), NSMinY(frame), NSWidth(bounds), NSHeight(frame));
  theme::fillRounded(NSInsetRect(row, kHighlightInset, 0), kHighlightRadius,
                     theme::color(theme::kAccent));
}

/// The title of a pop-up button has the margin of the button, whatever the width of the images in
/// its menu; other titles are laid out by the menu.
- (void)drawTitleForMenuItemCell:(NSMenuItemCell *)cell
                       withFrame:(NSRect)frame
                          inView:(NSView *)view
                           state:(GSThemeControlState)state
                    isHorizontal:(BOOL)isHorizontal {
  if (![cell isKindOfClass:[NSPopUpButtonCell class]]) {
    [super drawTitleForMenuItemCell:cell
                          withFrame:frame
                             inView:view
                              state:state
                       isHorizontal:isHorizontal];
    return;
  }
  const NSRect visible = theme::visibleButtonRect([view bounds], cell);
  theme::drawLine([[cell menuItem] title] ?: @"", popUpTextRect(visible), titleAttributes(cell),
                  NSLeftTextAlignment);
}

/// Opens the menu with the selected title exactly over that of the button.
- (void)displayPopUpMenu:(NSMenuView *)menuView
           withCellFrame:(NSRect)frame
       controlViewWindow:(NSWindow *)window
           preferredEdge:(NSRectEdge)edge
            selectedItem:(int)selected {
  // On the screen, whose unit is pixels.
  const double scale = [window userSpaceScaleFactor];
  NSRect visible = scaled(theme::visiblePopUpRect(scaled(frame, 1 / scale)), scale);
  if (selected >= 0) {
    tickSelectedItem([menuView menu], selected);
    const double points = [menuView imageAndTitleOffset] + kItemBorders - kPopUpTextMargin;
    const double shift = points * scale;
    visible.origin.x -= shift;
    visible.size.width += shift;
  }
  [super displayPopUpMenu:menuView
            withCellFrame:visible
        controlViewWindow:window
            preferredEdge:edge
             selectedItem:selected];
  fitWindow(menuView, visible, selected);
}

@end
