#import "tests/platform/sheets/SheetTest.h"

/// The owner of Sheet.xib.
@interface SheetInterface : NSObject {
  NSWindow *sheet;
  NSTextField *field;
}
@property (assign) NSWindow *sheet;
@property (assign) NSTextField *field;
@end

@implementation SheetInterface
@synthesize sheet, field;
@end

namespace {

struct SheetLooks : SheetTest {
  /// The middle of the lower edge of the parent's title bar.
  NSPoint edge() const {
    const NSRect content = [parent contentRectForFrameRect:[parent frame]];
    return NSMakePoint(NSMidX(content), NSMaxY(content));
  }

  void expectAttached() {
    const NSRect frame = [sheet frame];
    EXPECT_NEAR(NSMidX(frame), edge().x, 0.5);
    EXPECT_EQ(NSMaxY(frame), edge().y);
  }
};

}  // namespace

TEST_F(SheetLooks, HangsInTheMiddleUnderTheParentsTitleBar) {
  begin(sheet);
  expectAttached();
}

TEST_F(SheetLooks, FollowsAMovedParent) {
  begin(sheet);
  const NSPoint former = [sheet frame].origin;
  [parent setFrameOrigin:NSMakePoint(120, 180)];
  EXPECT_TRUE(handleEventsUntil([&] { return [sheet frame].origin.x != former.x; }));
  expectAttached();
}

TEST_F(SheetLooks, FollowsAResizedParent) {
  begin(sheet);
  const NSPoint former = [sheet frame].origin;
  [parent setContentSize:NSMakeSize(620, 400)];
  EXPECT_TRUE(handleEventsUntil([&] { return [sheet frame].origin.x != former.x; }));
  expectAttached();
}

TEST_F(SheetLooks, AWaitingSheetAppearsWhereTheParentHasMovedTo) {
  begin(second);
  begin(sheet);
  [parent setFrameOrigin:NSMakePoint(120, 180)];
  handlePostedEvents();
  [NSApp endSheet:second];
  expectAttached();
}

TEST_F(SheetLooks, AParentAtTheEdgeOfTheScreenMovesToMakeRoom) {
  [parent setFrameOrigin:NSMakePoint(-400, -350)];
  handlePostedEvents();
  begin(sheet);
  EXPECT_TRUE(isOnScreen(sheet)) << NSStringFromRect([sheet frame]);
  handlePostedEvents();
  expectAttached();
}

TEST_F(SheetLooks, AWindowWithATitleBarHasNoneAsASheet) {
  const NSUInteger titled = [sheet styleMask];
  const NSSize content = [[sheet contentView] frame].size;
  begin(sheet);
  EXPECT_EQ([sheet styleMask], static_cast<NSUInteger>(NSBorderlessWindowMask));
  EXPECT_TRUE(NSEqualSizes([sheet frame].size, content));
  EXPECT_TRUE(NSEqualSizes([[sheet contentView] frame].size, content));
  [NSApp endSheet:sheet];
  EXPECT_EQ([sheet styleMask], titled);
  EXPECT_TRUE(NSEqualSizes([[sheet contentView] frame].size, content));
}

TEST_F(SheetLooks, AWindowFromAnInterfaceFileIsAWholeSheet) {
  SheetInterface *const interface = [[[SheetInterface alloc] init] autorelease];
  ASSERT_TRUE([NSBundle loadNibNamed:@"Sheet" owner:interface]);
  NSWindow *const window = [interface sheet];
  begin(window);
  EXPECT_EQ([window styleMask], static_cast<NSUInteger>(NSBorderlessWindowMask));
  EXPECT_TRUE(NSEqualSizes([window frame].size, NSMakeSize(320, 90)));
  postKeys(window, @"typed");
  handlePostedEvents();
  EXPECT_TRUE([[[[interface field] currentEditor] string] isEqualToString:@"typed"]);
  [NSApp endSheet:window];
  EXPECT_FALSE([window isVisible]);
}

TEST_F(SheetLooks, AWindowOnTheScreenLosesItsTitleBarToo) {
  [sheet makeKeyAndOrderFront:nil];
  handlePostedEvents();
  begin(sheet);
  EXPECT_EQ([sheet styleMask], static_cast<NSUInteger>(NSBorderlessWindowMask));
  expectAttached();
  EXPECT_EQ([NSApp keyWindow], sheet);
}

TEST_F(SheetLooks, AWindowsSmallestSizeKeepsItsContentsWhole) {
  [sheet setContentMinSize:[[sheet contentView] frame].size];
  const NSSize smallest = [sheet contentMinSize];
  begin(sheet);
  EXPECT_TRUE(NSEqualSizes([sheet frame].size, smallest));
  [NSApp endSheet:sheet];
  EXPECT_TRUE(NSEqualSizes([sheet contentMinSize], smallest));
}

TEST_F(SheetLooks, AFormerSheetIsAnOrdinaryWindowAgain) {
  begin(sheet);
  [NSApp endSheet:sheet];
  [sheet makeKeyAndOrderFront:nil];
  EXPECT_TRUE([sheet isVisible]);
  EXPECT_TRUE([sheet isKeyWindow]);
  EXPECT_EQ([sheet level], NSNormalWindowLevel);
  EXPECT_EQ([[[[sheet contentView] superview] subviews] count], 1u);
  postClick(button(sheet));
  handlePostedEvents();
  EXPECT_EQ(delegate->clicks, 1);
}

TEST_F(SheetLooks, APanelAsASheetStaysWhenTheApplicationIsNoLongerTheActiveOne) {
  NSPanel *const panel = [[[NSPanel alloc] initWithContentRect:NSMakeRect(0, 0, 200, 80)
                                                     styleMask:NSTitledWindowMask
                                                       backing:NSBackingStoreBuffered
                                                         defer:YES] autorelease];
  begin(panel);
  [NSApp deactivate];
  EXPECT_TRUE([panel isVisible]);
  [NSApp activateIgnoringOtherApps:YES];
  [NSApp endSheet:panel];
  EXPECT_TRUE([panel hidesOnDeactivate]);
}

TEST_F(SheetLooks, ASheetBegunWhileTheApplicationIsHiddenAppearsWithIt) {
  [NSApp hide:nil];
  begin(sheet);
  EXPECT_EQ([parent attachedSheet], sheet);
  EXPECT_FALSE([sheet isVisible]);
  [NSApp unhide:nil];
  handlePostedEvents();
  EXPECT_TRUE([sheet isVisible]);
  expectAttached();
}

TEST_F(SheetLooks, HidingTheApplicationHidesItsSheets) {
  begin(sheet);
  [NSApp hide:nil];
  EXPECT_FALSE([sheet isVisible]);
  [NSApp unhide:nil];
  handlePostedEvents();
  EXPECT_TRUE([sheet isVisible]);
  expectAttached();
}

TEST_F(SheetLooks, ASheetOfAnInactiveApplicationTakesNobodysKeyboard) {
  [NSApp deactivate];
  begin(sheet);
  EXPECT_TRUE([sheet isVisible]);
  EXPECT_FALSE([sheet isKeyWindow]);
  [NSApp activateIgnoringOtherApps:YES];
  handlePostedEvents();
  EXPECT_EQ([NSApp keyWindow], sheet);
}
