#include <gtest/gtest.h>

#include "tests/platform/theme/Themed.h"

@interface ActionCounter : NSObject {
 @public
  int count;
}
- (void)countUp:(id)sender;
@end

@implementation ActionCounter
- (void)countUp:(id)sender {
  (void)sender;
  ++count;
}
@end

@interface NSApplication (LastWindow)
- (void)_lastWindowClosed;
@end

namespace {

struct MainMenu : Themed {
  ActionCounter *counter = [[[ActionCounter alloc] init] autorelease];

  MainMenu() {
    NSMenu *const menu = [[[NSMenu alloc] initWithTitle:@"Main"] autorelease];
    NSMenuItem *const edit = (NSMenuItem *)[menu addItemWithTitle:@"Edit"
                                                           action:nullptr
                                                    keyEquivalent:@""];
    NSMenu *const items = [[[NSMenu alloc] initWithTitle:@"Edit"] autorelease];
    NSMenuItem *const count = (NSMenuItem *)[items addItemWithTitle:@"Count"
                                                             action:@selector(countUp:)
                                                      keyEquivalent:@"k"];
    [count setTarget:counter];
    [menu setSubmenu:items forItem:edit];
    [NSApp setMainMenu:menu];
    handleEvents();
  }

  ~MainMenu() override { [NSApp setMainMenu:nil]; }
};

}  // namespace

TEST_F(MainMenu, ItsKeyEquivalentsWork) {
  typeKey(window, 'k', NSCommandKeyMask);
  EXPECT_EQ(counter->count, 1);
}

TEST_F(MainMenu, NoWindowOfItsOwnIsOnTheScreen) {
  for (NSWindow *shown in [NSApp windows]) {
    EXPECT_TRUE(shown == window || ![shown isVisible]);
  }
}

TEST_F(MainMenu, ItTakesNoRoomInWindows) {
  EXPECT_EQ([window menu], nil);
  EXPECT_EQ(NSHeight([[window contentView] frame]), 400);
}

TEST(Application, ItGoesOnAfterItsLastWindowHasClosed) {
  // The platform sends this after the last window has closed. Terminating would end the test
  // program.
  EXPECT_EXIT(
      {
        [NSApp _lastWindowClosed];
        std::_Exit(42);
      },
      testing::ExitedWithCode(42), "");
}

TEST(Application, WindowsHaveTheThemesBackground) {
  NSWindow *const window = [[[NSWindow alloc] initWithContentRect:NSMakeRect(0, 0, 50, 50)
                                                        styleMask:NSTitledWindowMask
                                                          backing:NSBackingStoreBuffered
                                                            defer:NO] autorelease];
  [window setReleasedWhenClosed:NO];
  [window orderFront:nil];
  const Picture picture([window contentView]);
  EXPECT_EQ(picture.count(theme::kWindow), 2500);
  [window close];
}
