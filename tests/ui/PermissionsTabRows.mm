#import "tests/support/Arguments.h"
#import "tests/support/Events.h"
#include "tests/ui/PermissionsTab.h"
#import "tests/ui/ReadingOrder.h"
#import "text/LocalizedText.h"
#import "windows/share/PersonItem.h"

using PermissionsTabRows = PermissionsTab;

namespace {

constexpr int kMany = 1000;

NSString *const kGrant = @"grantAccess:::::::::";
NSString *const kRevoke = @"revokeAccess:::";

/// The row of one of people().
int rowOf(SharedWith *person) {
  return [[[person useremail] substringWithRange:NSMakeRange(1, 4)] intValue];
}

}  // namespace

TEST_F(PermissionsTabRows, OfAThousandRowsOnlyThoseInSightHaveViews) {
  answerList(people(kMany));
  openLoaded();
  [[window window] display];
  EXPECT_GT([[collection() subviews] count], 3u);
  EXPECT_LT([[collection() subviews] count], 30u);
}

TEST_F(PermissionsTabRows, AChoiceInRow900ChangesThePersonInRow900) {
  answer(
      people(kMany), kGrant,
      @{@"reply" : success(@1)});
  openLoaded();
  choose(901, @"accessPermissionReadWriteKey");
  EXPECT_EQ(text([argumentsOfLast(kGrant) objectAtIndex:grant_operation::kUserEmail]),
            "p0901@example.org");
  EXPECT_EQ([outlet<NSArrayController>("arrayController") selectionIndex], 901u);
  EXPECT_EQ([person(901) accessPermission], 1);
  EXPECT_LT([[collection() subviews] count], 60u);
}

TEST_F(PermissionsTabRows, TheRemoveButtonInRow900IsForThePersonInRow900AlsoAfterRemovals) {
  answer(
      people(kMany), kRevoke,
      @{@"reply" : success(@1)});
  openLoaded();
  [tab revokeAccessToUser:@0];
  [tab revokeAccessToUser:@500];
  EXPECT_TRUE(handleEventsUntil([&] { return sheet() == nil; }));
  press(askToRemove(900), 0);
  EXPECT_EQ(text([argumentsOfLast(kRevoke) objectAtIndex:revoke_operation::kUserEmail]),
            "p0902@example.org");
  EXPECT_EQ([[tab personList] count], static_cast<NSUInteger>(kMany) - 3);
}

TEST_F(PermissionsTabRows, RowsScrolledIntoSightShowTheirPerson) {
  answerList(people(kMany));
  openLoaded();
  for (const NSUInteger row : {999u, 500u, 3u}) {
    const std::string name = "First" + std::to_string(10000 + row).substr(1) + " Last";
    EXPECT_EQ(text([nameIn(row) stringValue]), name);
    EXPECT_TRUE(NSIntersectsRect([list() documentVisibleRect], [rowView(row) frame]));
  }
}

TEST_F(PermissionsTabRows, RowsWidenWithTheWindowAndTheControlsStayAtTheRight) {
  answerList(people(3));
  openLoaded();
  const CGFloat width = NSWidth([rowView(0) frame]);
  const CGFloat name = NSWidth([nameIn(0) frame]);
  const CGFloat remove = NSMinX([removeIn(0) frame]);
  NSRect frame = [[window window] frame];
  frame.size.width += 150;
  [[window window] setFrame:frame display:YES];
  EXPECT_NEAR(NSWidth([rowView(0) frame]), width + 150, 1);
  EXPECT_NEAR(NSWidth([nameIn(0) frame]), name + 150, 1);
  EXPECT_NEAR(NSMinX([removeIn(0) frame]), remove + 150, 1);
}

TEST_F(PermissionsTabRows, ARowFillsTheWidthOfTheList) {
  answerList(people(kMany));
  openLoaded();
  EXPECT_NEAR(NSWidth([rowView(0) frame]), NSWidth([list() documentVisibleRect]), 1);
}

TEST_F(PermissionsTabRows, AVeryLongNameIsCutAndKeepsClearOfTheControls) {
  NSString *const endless = [@"" stringByPaddingToLength:2000 withString:@"name" startingAtIndex:0];
  answerList(@[ reader(endless, @"last", @"a@x.org") ]);
  openLoaded();
  EXPECT_LE(NSMaxX([nameIn(0) frame]), NSMinX([accessIn(0) frame]));
  EXPECT_EQ([[nameIn(0) cell] lineBreakMode], NSLineBreakByTruncatingTail);
}

TEST_F(PermissionsTabRows, NamesInEveryScriptAreShownAsTheyAre) {
  answerList(@[ reader(@"محمد", @"العربي", @"m@x.org"), reader(@"山田", @"太郎", @"y@x.org") ]);
  openLoaded();
  EXPECT_EQ(text([nameIn(0) stringValue]), "محمد العربي");
  EXPECT_EQ(text([nameIn(1) stringValue]), "山田 太郎");
}

TEST_F(PermissionsTabRows, TheControlsHaveNamesForUsersWhoDoNotSeeThem) {
  answerList(people(1));
  openLoaded();
  EXPECT_EQ(text([accessIn(0) accessibilityAttributeValue:NSAccessibilityDescriptionAttribute]),
            text(localizedText(@"personAccessDescriptionKey")));
}

TEST_F(PermissionsTabRows, AListedPersonsButtonIsEnabled) {
  answerList(people(1));
  openLoaded();
  EXPECT_TRUE([removeIn(0) isEnabled]);
}

TEST_F(PermissionsTabRows, ARowFollowsItsPerson) {
  answerList(people(2));
  openLoaded();
  [person(1) setPermission:localizedText(@"accessPermissionReadWriteKey")];
  [person(1) setPersonName:@"Renamed"];
  EXPECT_EQ(text([accessIn(1) titleOfSelectedItem]), "Read and write");
  EXPECT_EQ(text([nameIn(1) stringValue]), "Renamed");
}

TEST_F(PermissionsTabRows, SpacePressesTheRemoveButtonThatHasTheKeyboard) {
  answerList(people(2));
  openLoaded();
  ASSERT_TRUE([[window window] makeFirstResponder:removeIn(1)]);
  postKeys([window window], @" ");
  EXPECT_TRUE(handleEventsUntil([&] { return sheet() != nil; }));
}

TEST_F(PermissionsTabRows, TabGoesThroughTheRowsInTheOrderOfReadingAndShiftTabBack) {
  for (const int count : {1, 3}) {
    answerList(people(count));
    openLoaded();
    [[window window] display];
    std::vector<id> views = viewsInReadingOrder([window window]);
    EXPECT_EQ(views.size(), static_cast<std::size_t>(2 * count + 2));
    ASSERT_EQ(views.back(), [[window window] firstResponder]);  // the button Done
    EXPECT_EQ(visitedByTab([window window], views.size()), views);
    std::reverse(views.begin(), views.end() - 1);
    EXPECT_EQ(visitedByTab([window window], views.size(), true), views);
    close();
  }
}

TEST_F(PermissionsTabRows, TabReachesTheRowsThatAreOutOfSightAndScrollsToThem) {
  constexpr int kRows = 20;
  answerList(people(kRows));
  openLoaded();
  postKeys([window window], @"\t");  // the row of tabs
  handlePostedEvents();
  for (const bool back : {false, true}) {
    std::vector<int> rows;
    for (int i = 0; i < 2 * kRows; ++i) {
      NSView *const control = visitedByTab([window window], 1, back).back();
      ASSERT_TRUE([[control superview] isKindOfClass:[PersonRowView class]]) << i;
      EXPECT_TRUE(NSEqualRects([control visibleRect], [control bounds])) << i;
      rows.push_back(rowOf([static_cast<PersonRowView *>([control superview]) person]));
    }
    for (int i = 0; i < 2 * kRows; ++i) {
      EXPECT_EQ(rows[static_cast<std::size_t>(i)], back ? kRows - 1 - i / 2 : i / 2);
    }
    // From the other end.
    const id behind = visitedByTab([window window], 1, back).back();
    const bool isTabs = [behind isKindOfClass:[NSTabView class]];
    const bool isButton = [behind isKindOfClass:[NSButton class]];
    EXPECT_TRUE(back ? isTabs : isButton);
  }
}

TEST_F(PermissionsTabRows, AControlThatIsEnabledLaterIsReachedByTab) {
  answerList(people(2));
  openLoaded();
  [person(0) setIsNotOwner:NO];
  rowView(0);
  EXPECT_EQ(visitedByTab([window window], 3).back(), accessIn(1));
  [person(0) setIsNotOwner:YES];
  [[window window] makeFirstResponder:accessIn(0)];
  EXPECT_EQ(visitedByTab([window window], 1).back(), removeIn(0));
}

TEST_F(PermissionsTabRows, ATabWithRowsThatIsOpenedHasTheKeyboardInTheFirstRow) {
  answerList(people(2));
  openLoaded();
  NSTabView *const tabs = viewsInReadingOrder([window window]).front();
  [tabs selectTabViewItemAtIndex:1];
  [tabs selectTabViewItemAtIndex:0];
  EXPECT_EQ([[window window] firstResponder], accessIn(0));
}
