#import <GNUstepGUI/GSDisplayServer.h>
#include <xcb/xcb.h>

#include "tests/platform/theme/Contrast.h"
#include "tests/platform/theme/Themed.h"
#include "tests/support/WindowServer.h"

namespace {

/// Light grounds are those of the theme's light look and of the platform's own.
bool isLightGround(theme::Rgb color) {
  constexpr int kLight = 0xA0;
  return static_cast<int>(color & 0xFF) > kLight && static_cast<int>(color >> 8 & 0xFF) > kLight &&
         static_cast<int>(color >> 16 & 0xFF) > kLight;
}

/// On a dark desktop. The constants of the theme stand for its dark colours here.
struct DarkLook : Themed {
  ShownLook look{{.isDark = true}};

  /// Whether hardly anything but thin lines and letters is light.
  static bool isDark(const Picture &picture) {
    return picture.count(isLightGround) < picture.width() * picture.height() / 10;
  }
};

/// The colour in the middle of a window as the window server shows it before it is drawn.
theme::Rgb colorBeforeDrawing(NSWindow *window) {
  GSDisplayServer *const server = GSServerForWindow(window);
  const auto device = reinterpret_cast<std::uintptr_t>(
      [server windowDevice:static_cast<int>([window windowNumber])]);
  xcb_connection_t *const connection = xcb_connect(nullptr, nullptr);
  xcb_clear_area(connection, 0, static_cast<xcb_window_t>(device), 0, 0, 0, 0);
  std::free(xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
  xcb_disconnect(connection);
  const NSRect frame = [window frame];
  const int height = static_cast<int>(NSHeight([[NSScreen mainScreen] frame]));
  const std::string pixel =
      pixelsIn({static_cast<int>(NSMidX(frame)), height - static_cast<int>(NSMidY(frame)), 1, 1});
  const auto channel = [&](std::size_t at) { return static_cast<unsigned char>(pixel.at(at)); };
  return static_cast<theme::Rgb>(channel(2) << 16 | channel(1) << 8 | channel(0));
}

/// A desktop that changes while windows are open.
struct ChangingLook : Themed {
  /// The colour at the upper left of the view as it is on the screen, without drawing anything that
  /// is not marked for display.
  static theme::Rgb corner(NSView *view) { return Picture::onScreen(view).at(2, 2); }
};

}  // namespace

TEST_F(DarkLook, WindowsAndTheirControlsAreDark) {
  EXPECT_TRUE(isDark(Picture([window contentView])));
  NSTabView *const view = tabs(@[ @"Send File", @"Copy Link" ]);
  EXPECT_TRUE(isDark(Picture(view)));
  [view removeFromSuperview];
  EXPECT_TRUE(isDark(Picture(pushButton(@"Cancel"))));
  EXPECT_TRUE(isDark(Picture(field(@"Anna"))));
  EXPECT_TRUE(isDark(Picture(popUp(@[ @"View" ]))));
  EXPECT_TRUE(isDark(Picture([textView() enclosingScrollView])));
  EXPECT_TRUE(isDark(Picture(markable(NSSwitchButton, NSOffState))));
}

TEST_F(DarkLook, DisabledControlsAreDark) {
  for (NSControl *control in @[
         pushButton(@"Cancel"), defaultButton(@"Send"), field(@"Anna"), popUp(@[ @"View" ]),
         markable(NSSwitchButton, NSOnState)
       ]) {
    [control setEnabled:NO];
    EXPECT_TRUE(isDark(Picture(control))) << [[control description] UTF8String];
    [control removeFromSuperview];
  }
}

TEST_F(DarkLook, OpenMenusAreDark) {
  NSPopUpButton *const button = popUp(@[ @"View", @"Edit", @"Manage" ]);
  [[button cell] attachPopUpWithFrame:[button bounds] inView:button];
  EXPECT_TRUE(isDark(Picture([[button menu] menuRepresentation])));
  [[button cell] dismissPopUp];
}

TEST_F(DarkLook, AlertsAreDark) {
  NSAlert *const alert = [[[NSAlert alloc] init] autorelease];
  [alert setMessageText:@"Check the recipients."];
  [[alert window] orderFront:nil];
  const Picture picture([[alert window] contentView]);
  EXPECT_EQ(picture.at(2, 2), theme::kWindow);
  [[alert window] close];
}

TEST_F(DarkLook, TheCaretIsLight) {
  NSTextView *const text = textView();
  EXPECT_EQ(Picture(text).count(isLightGround), 0);
  ASSERT_TRUE(focus(text));
  [text updateInsertionPointStateAndRestartTimer:YES];
  EXPECT_GT(Picture(text).count(isLightGround), 5);
}

TEST_F(DarkLook, TheFocusRingIsSeen) {
  constexpr double kSeen = 3;  // WCAG 2 for what is no text
  EXPECT_GT(contrastOf(theme::kFocus, theme::kWindow), kSeen);
  EXPECT_GT(contrastOf(theme::kFocus, theme::kSurface), kSeen);
  NSTextField *const name = field(@"Anna");
  ASSERT_TRUE(focus(name));
  EXPECT_GT(contrastOf(Picture(name).at(80, 0), theme::kWindow), kSeen);
}

TEST_F(ChangingLook, IsDrawnAtOnceInOpenWindows) {
  NSView *const content = [window contentView];
  EXPECT_EQ(corner(content), theme::kWindow.light);
  {
    const ShownLook dark({.isDark = true});
    EXPECT_EQ(corner(content), theme::kWindow.dark);
  }
  EXPECT_EQ(corner(content), theme::kWindow.light);
}

TEST_F(DarkLook, ANewWindowIsDarkBeforeItIsDrawn) {
  NSWindow *const next = [[[NSWindow alloc] initWithContentRect:NSMakeRect(100, 100, 300, 200)
                                                      styleMask:NSTitledWindowMask
                                                        backing:NSBackingStoreBuffered
                                                          defer:YES] autorelease];
  [next setReleasedWhenClosed:NO];
  [next orderFrontRegardless];
  EXPECT_EQ(colorBeforeDrawing(next), theme::kWindow);
  [next close];
}

TEST_F(ChangingLook, IsThatOfAWindowBeforeItIsDrawnAgain) {
  const ShownLook dark({.isDark = true});
  EXPECT_EQ(colorBeforeDrawing(window), theme::kWindow.dark);
}

TEST_F(ChangingLook, IsThatOfTextsThatWereEnteredBefore) {
  NSTextView *const text = [[NSTextView alloc] initWithFrame:NSMakeRect(20, 20, 200, 40)];
  [text setString:@"Here is what we talked about."];
  show(text);
  EXPECT_GT(Picture(text).count(isInk), 10);
  const ShownLook dark({.isDark = true});
  const Picture picture = Picture::onScreen(text);
  EXPECT_GT(picture.count(theme::kText), 10);
  EXPECT_EQ(picture.at(199, 39), theme::kSurface.dark);
}

TEST_F(ChangingLook, IsThatOfAFieldThatIsBeingEdited) {
  NSTextField *const name = field(@"Anna");
  ASSERT_TRUE(focus(name));
  [[name currentEditor] setSelectedRange:NSMakeRange(4, 0)];
  const ShownLook dark({.isDark = true});
  const Picture picture = Picture::onScreen(name);
  EXPECT_EQ(picture.at(140, 11), theme::kSurface.dark);
  EXPECT_GT(picture.count(theme::kText), 5);
}

TEST_F(ChangingLook, IsThatOfSystemColoursThatAnInterfaceFileHasByName) {
  // A colour that nothing else here asks the platform for.
  NSColor *const color = [NSColor colorWithCatalogName:@"System" colorName:@"headerTextColor"];
  NSTextField *const name = label(@"Recipients");
  [name setTextColor:color];
  EXPECT_GT(Picture(name).count(theme::kText.light), 5);
  const ShownLook dark({.isDark = true});
  EXPECT_GT(Picture::onScreen(name).count(theme::kText.dark), 5);
}

TEST_F(ChangingLook, LeavesAnotherThemeOfTheUserLight) {
  NSUserDefaults *const defaults = [NSUserDefaults standardUserDefaults];
  const ShownLook dark({.isDark = true});
  [defaults setObject:@"GNUstep" forKey:@"GSTheme"];
  EXPECT_FALSE(theme::isDark());
  [defaults removeObjectForKey:@"GSTheme"];
  EXPECT_TRUE(theme::isDark());
}
