#include "tests/platform/theme/Themed.h"
#include "tests/support/Strings.h"

namespace {

struct PopUps : Themed {
  NSPopUpButton *button = popUp(@[ @"View", @"Edit", @"Manage" ]);

  NSMenuView *menu() const { return [[button menu] menuRepresentation]; }

  /// The menu, open over its button until the test's end.
  NSMenuView *open() {
    [[button cell] attachPopUpWithFrame:[button bounds] inView:button];
    [[menu() window] display];
    return menu();
  }

  Picture item(NSInteger index) const { return {menu(), [menu() rectOfItemAtIndex:index]}; }

  /// The space for the tick, left of an item's title.
  Picture tickOf(NSInteger index) const {
    NSRect rect = [menu() rectOfItemAtIndex:index];
    rect.size.width = [menu() imageAndTitleOffset];
    return {menu(), rect};
  }

  NSRect onScreen(NSView *view, NSRect rect) const {
    rect = [view convertRect:rect toView:nil];
    rect.origin = [[view window] convertBaseToScreen:rect.origin];
    return rect;
  }

  ~PopUps() override { [[button cell] dismissPopUp]; }
};

}  // namespace

TEST_F(PopUps, AClosedButtonShowsItsTitleAndArrows) {
  const Picture whole(button);
  EXPECT_GT(whole.count(theme::kButton), 1000);
  EXPECT_GT(Picture(button, NSMakeRect(0, 0, 60, 26)).count(isInk), 10);
  EXPECT_GT(Picture(button, NSMakeRect(115, 0, 25, 26)).count(isInk), 5);
}

TEST_F(PopUps, AClosedButtonShowsNoTickWhateverItsItemsSay) {
  const Picture before(button);
  for (NSMenuItem *item in [button itemArray]) {
    [item setOnStateImage:[NSImage imageNamed:@"NSMenuCheckmark"]];
  }
  [[button selectedItem] setState:NSOnState];
  EXPECT_EQ(Picture(button), before);
}

TEST_F(PopUps, TitlesOfDifferentButtonsStartAtTheSamePlace) {
  const Picture before(button);
  [button selectItemAtIndex:2];
  [button selectItemAtIndex:0];
  [[button itemAtIndex:2] setOnStateImage:[NSImage imageNamed:@"NSMenuCheckmark"]];
  [[button itemAtIndex:2] setState:NSOnState];
  EXPECT_EQ(Picture(button), before);
}

TEST_F(PopUps, ADisabledButtonIsPale) {
  [button setEnabled:NO];
  const Picture picture(button);
  EXPECT_EQ(picture.count(isInk), 0);
  EXPECT_TRUE(picture.shows(theme::kTextDisabled));
}

TEST_F(PopUps, AButtonWithTheKeyboardHasARing) {
  EXPECT_EQ(Picture(button).count(isBluish), 0);
  EXPECT_TRUE(focus(button));
  EXPECT_GT(Picture(button).count(isBluish), 100);
}

TEST_F(PopUps, ATitleThatIsTooLongIsCutBeforeTheArrows) {
  const NSRect right = NSMakeRect(119, 0, 21, 26);
  const Picture arrows(button, right);
  [button addItemWithTitle:@"A title that is much too long for its button"];
  [button selectItemAtIndex:3];
  EXPECT_EQ(Picture(button, right), arrows);
}

TEST_F(PopUps, AnArchivedCopyLooksLikeTheOriginal) {
  const Picture original(button);
  NSData *const data = [NSArchiver archivedDataWithRootObject:button];
  [button setHidden:YES];
  NSPopUpButton *const copy = show([[NSUnarchiver unarchiveObjectWithData:data] retain]);
  EXPECT_EQ(Picture(copy), original);
}

TEST_F(PopUps, TheSelectedItemOfAnOpenMenuHasATick) {
  [button selectItemAtIndex:1];
  open();
  [menu() setHighlightedItemIndex:-1];
  EXPECT_EQ(tickOf(0).count(isInk), 0);
  EXPECT_GT(tickOf(1).count(isInk), 5);
  EXPECT_EQ(tickOf(2).count(isInk), 0);
}

TEST_F(PopUps, TheTickGoesWithTheSelection) {
  [button selectItemAtIndex:1];
  open();
  [[button cell] dismissPopUp];
  [button selectItemAtIndex:2];
  open();
  [menu() setHighlightedItemIndex:-1];
  EXPECT_EQ(tickOf(1).count(isInk), 0);
  EXPECT_GT(tickOf(2).count(isInk), 5);
}

TEST_F(PopUps, TheItemUnderTheMouseIsWhiteOnTheAccentColour) {
  open();
  [menu() setHighlightedItemIndex:2];
  const Picture picture = item(2);
  EXPECT_GT(picture.count(theme::kAccent), picture.width() * picture.height() / 2);
  EXPECT_GT(picture.count(theme::kOnAccent), 10);
  EXPECT_EQ(picture.count(isInk), 0);
}

TEST_F(PopUps, OtherItemsAreDarkOnWhite) {
  open();
  [menu() setHighlightedItemIndex:2];
  const Picture picture = item(1);
  EXPECT_EQ(picture.count(isBluish), 0);
  EXPECT_GT(picture.count(theme::kMenu), picture.width() * picture.height() / 2);
  EXPECT_GT(picture.count(isInk), 10);
}

TEST_F(PopUps, AnItemThatCannotBeChosenIsPale) {
  [button setAutoenablesItems:NO];
  [[button itemAtIndex:2] setEnabled:NO];
  open();
  EXPECT_EQ(item(2).count(isInk), 0);
  EXPECT_TRUE(item(2).shows(theme::kTextDisabled));
}

TEST_F(PopUps, TheSelectedItemOpensOverTheButton) {
  [button selectItemAtIndex:1];
  open();
  const NSRect row = onScreen(menu(), [menu() rectOfItemAtIndex:1]);
  const NSRect shape = onScreen(button, [button bounds]);
  EXPECT_NEAR(NSMidY(row), NSMidY(shape), 1);
  EXPECT_GE(NSMaxX(row), NSMaxX(shape) - 4);
}

TEST_F(PopUps, AMenuIsAsHighAsItsItemsWithSeparatorsBeingLower) {
  [[button menu] insertItem:[NSMenuItem separatorItem] atIndex:1];
  open();
  const double row = NSHeight([menu() rectOfItemAtIndex:0]);
  const double separator = NSHeight([menu() rectOfItemAtIndex:1]);
  EXPECT_LT(separator, row);
  EXPECT_NEAR(NSHeight([[menu() window] frame]), 3 * row + separator, 2);
  EXPECT_EQ(NSHeight([[menu() window] frame]), NSHeight([menu() frame]));
}

TEST_F(PopUps, AMenuAtTheEdgeOfTheScreenStaysOnIt) {
  [window setFrameOrigin:NSMakePoint(100, -190)];
  open();
  EXPECT_GE(NSMinY([[menu() window] frame]), 0);
}

TEST_F(PopUps, AMenuThatHangsFromItsButtonBeginsWithItsSecondItem) {
  [button setPullsDown:YES];
  open();
  EXPECT_NEAR(NSHeight([[menu() window] frame]), 2 * NSHeight([menu() rectOfItemAtIndex:1]), 2);
}
