#include "tests/platform/theme/Themed.h"
#import "tests/support/Tracking.h"

/// Counts the actions of a control, and stores the selection and whether the menu is open.
@interface ChoiceCounter : NSObject {
 @public
  int count;
  NSPopUpButton *watched;
  BOOL sawOpenMenu;
  NSInteger sawSelected;
  id sawSender;
}
- (void)chosen:(id)sender;
@end

@implementation ChoiceCounter
- (void)chosen:(id)sender {
  sawSender = sender;
  ++count;
  sawOpenMenu = [[[[watched menu] menuRepresentation] window] isVisible];
  sawSelected = [watched indexOfSelectedItem];
}
@end

namespace {

constexpr unichar kEscape = 0x1B;
constexpr unichar kReturn = 0x0D;

/// Between the timestamps of the press and the release: a click, and longer than one.
constexpr NSTimeInterval kShortSeconds = 0.1;
constexpr NSTimeInterval kLongSeconds = 1;

constexpr NSTimeInterval kStart = 1000;

struct PopUpClicks : Themed {
  NSPopUpButton *button = popUp(@[ @"View", @"Edit", @"Manage" ]);
  ChoiceCounter *choices = [[[ChoiceCounter alloc] init] autorelease];

  PopUpClicks() {
    [button selectItemAtIndex:1];
    [button setTarget:choices];
    [button setAction:@selector(chosen:)];
    [window display];
  }

  NSMenuView *menu() const { return [[button menu] menuRepresentation]; }
  bool isOpen() const { return [[menu() window] isVisible] != NO; }

  static int rows() { return 26; }

  /// The middle of a row of the button's pixels, from its upper edge.
  NSPoint row(int index) const {
    const NSRect frame = [button frame];
    return NSMakePoint(NSMidX(frame), NSMaxY(frame) - index);
  }

  /// The middle of an item of the open menu, in the window.
  NSPoint item(NSInteger index) const {
    const NSRect rect = [menu() convertRect:[menu() rectOfItemAtIndex:index] toView:nil];
    const NSPoint middle = NSMakePoint(NSMidX(rect), NSMidY(rect));
    return [window convertScreenToBase:[[menu() window] convertBaseToScreen:middle]];
  }

  void post(NSEventType type, NSPoint place, NSTimeInterval time) const {
    [NSApp postEvent:[NSEvent mouseEventWithType:type
                                        location:place
                                   modifierFlags:0
                                       timestamp:time
                                    windowNumber:[window windowNumber]
                                         context:nil
                                     eventNumber:0
                                      clickCount:1
                                        pressure:1]
             atStart:NO];
  }

  void postClick(NSPoint place) const {
    post(NSLeftMouseDown, place, kStart);
    post(NSLeftMouseUp, place, kStart + kShortSeconds);
  }

  void postKey(unichar key) const {
    NSString *const characters = [NSString stringWithCharacters:&key length:1];
    [NSApp postEvent:[NSEvent keyEventWithType:NSKeyDown
                                            location:NSZeroPoint
                                       modifierFlags:0
                                           timestamp:kStart
                                        windowNumber:[window windowNumber]
                                             context:nil
                                          characters:characters
                         charactersIgnoringModifiers:characters
                                           isARepeat:NO
                                             keyCode:0]
             atStart:NO];
  }

  /// Clicks, and then takes the steps while the menu is open; answers the number of steps taken.
  std::size_t clickAnd(NSPoint place, std::vector<std::function<void()>> steps) const {
    const TrackingSteps user(std::move(steps));
    postClick(place);
    handleEvents();
    return user.taken();
  }

  std::function<void()> pressing(unichar key) const {
    return [this, key] { postKey(key); };
  }
};

}  // namespace

TEST_F(PopUpClicks, AClickOnAnyRowOfPixelsLeavesTheMenuOpenAndChoosesNothing) {
  for (int i = 0; i < rows(); ++i) {
    EXPECT_EQ(clickAnd(row(i), {pressing(kEscape)}), 1u) << i;
    EXPECT_FALSE(isOpen()) << i;
  }
  EXPECT_EQ(choices->count, 0);
  EXPECT_EQ([button indexOfSelectedItem], 1);
}

TEST_F(PopUpClicks, ASecondClickOnTheSamePlaceChoosesWhatWasSelected) {
  for (int i = 0; i < rows(); ++i) {
    EXPECT_EQ(clickAnd(row(i), {[&] { postClick(row(i)); }}), 1u) << i;
    EXPECT_FALSE(isOpen()) << i;
    EXPECT_EQ([button indexOfSelectedItem], 1) << i;
  }
}

TEST_F(PopUpClicks, AClickOnAnItemOfTheOpenMenuChoosesIt) {
  clickAnd(row(0), {[&] { postClick(item(2)); }});
  EXPECT_FALSE(isOpen());
  EXPECT_EQ([button indexOfSelectedItem], 2);
  EXPECT_EQ(choices->count, 1);
}

TEST_F(PopUpClicks, APressThatIsHeldWithoutMovementChoosesWhatWasSelected) {
  for (int i = 0; i < rows(); ++i) {
    post(NSLeftMouseDown, row(i), kStart);
    post(NSLeftMouseUp, row(i), kStart + kLongSeconds);
    handleEvents();
    EXPECT_FALSE(isOpen()) << i;
    EXPECT_EQ([button indexOfSelectedItem], 1) << i;
  }
}

TEST_F(PopUpClicks, APressThatIsMovedChoosesByItsRelease) {
  const TrackingSteps user({[&] { post(NSLeftMouseDragged, item(0), kStart); },
                            [&] { post(NSLeftMouseUp, item(0), kStart + kShortSeconds); }});
  post(NSLeftMouseDown, row(13), kStart);
  handleEvents();
  EXPECT_FALSE(isOpen());
  EXPECT_EQ([button indexOfSelectedItem], 0);
  EXPECT_EQ(choices->count, 1);
}

TEST_F(PopUpClicks, AReleaseOutsideTheMenuChoosesNothing) {
  post(NSLeftMouseDown, row(13), kStart);
  post(NSLeftMouseUp, NSMakePoint(5, 5), kStart + kLongSeconds);
  handleEvents();
  EXPECT_FALSE(isOpen());
  EXPECT_EQ(choices->count, 0);
}

TEST_F(PopUpClicks, AClickElsewhereClosesTheMenuAndReachesNobody) {
  NSButton *const other = pushButton(@"Other");
  [other setTarget:choices];
  [other setAction:@selector(chosen:)];
  [window display];
  clickAnd(row(13), {[&] { postClick(NSMakePoint(60, 36)); }});
  EXPECT_FALSE(isOpen());
  EXPECT_EQ(choices->count, 0);
  EXPECT_EQ([button indexOfSelectedItem], 1);
}

TEST_F(PopUpClicks, ArrowsAndReturnChooseInTheOpenMenu) {
  clickAnd(row(0), {pressing(NSDownArrowFunctionKey), pressing(kReturn)});
  EXPECT_FALSE(isOpen());
  EXPECT_EQ([button indexOfSelectedItem], 2);
  EXPECT_EQ(choices->count, 1);
}

TEST_F(PopUpClicks, EscapeAfterArrowsLeavesTheTitleThatTheButtonHad) {
  clickAnd(row(0), {pressing(NSDownArrowFunctionKey), pressing(kEscape)});
  [button synchronizeTitleAndSelectedItem];
  EXPECT_EQ([button indexOfSelectedItem], 1);
  EXPECT_EQ(choices->count, 0);
}

TEST_F(PopUpClicks, EscapeAfterArrowsLeavesTheTitleAlsoOfAMenuOpenedByKeyboard) {
  focus(button);
  typeKey(window, ' ');
  ASSERT_TRUE(isOpen());
  typeKey(window, NSDownArrowFunctionKey);
  typeKey(window, kEscape);
  EXPECT_FALSE(isOpen());
  [button synchronizeTitleAndSelectedItem];
  EXPECT_EQ([button indexOfSelectedItem], 1);
}

TEST_F(PopUpClicks, AClickElsewhereClosesAMenuThatWasOpenedByKeyboardAndReachesNobody) {
  NSButton *const other = pushButton(@"Other");
  [other setTarget:choices];
  [other setAction:@selector(chosen:)];
  focus(button);
  typeKey(window, ' ');
  ASSERT_TRUE(isOpen());
  typeKey(window, NSDownArrowFunctionKey);
  postClick(NSMakePoint(60, 36));
  handleEvents();
  EXPECT_FALSE(isOpen());
  EXPECT_EQ(choices->count, 0);
  EXPECT_EQ([button indexOfSelectedItem], 1);
}

TEST_F(PopUpClicks, HomeEndAndThePageKeysGoToTheEndsOfTheMenu) {
  clickAnd(row(0), {pressing(NSEndFunctionKey), pressing(kReturn)});
  EXPECT_EQ([button indexOfSelectedItem], 2);
  clickAnd(row(0), {pressing(NSHomeFunctionKey), pressing(kReturn)});
  EXPECT_EQ([button indexOfSelectedItem], 0);
  clickAnd(row(0), {pressing(NSPageDownFunctionKey), pressing(kReturn)});
  EXPECT_EQ([button indexOfSelectedItem], 2);
  clickAnd(row(0), {pressing(NSPageUpFunctionKey), pressing(kReturn)});
  EXPECT_EQ([button indexOfSelectedItem], 0);
}

TEST_F(PopUpClicks, AnArrowOpensTheMenuOfAButtonWithTheKeyboardAndChoosesNothing) {
  focus(button);
  for (const unichar arrow : {NSUpArrowFunctionKey, NSDownArrowFunctionKey}) {
    typeKey(window, arrow);
    EXPECT_TRUE(isOpen());
    EXPECT_EQ([menu() highlightedItemIndex], 1);
    typeKey(window, kEscape);
    EXPECT_FALSE(isOpen());
  }
  EXPECT_EQ([button indexOfSelectedItem], 1);
  EXPECT_EQ(choices->count, 0);
}

TEST_F(PopUpClicks, AMenuOpenedByKeyboardHasTheSameKeys) {
  const std::vector<std::pair<unichar, NSInteger>> keys = {{NSEndFunctionKey, 2},
                                                           {NSHomeFunctionKey, 0},
                                                           {NSPageDownFunctionKey, 2},
                                                           {NSPageUpFunctionKey, 0},
                                                           {'m', 2},
                                                           {'e', 1},
                                                           {NSUpArrowFunctionKey, 0}};
  focus(button);
  int count = 0;
  for (const auto &[key, chosen] : keys) {
    typeKey(window, ' ');
    ASSERT_TRUE(isOpen());
    typeKey(window, key);
    EXPECT_EQ([menu() highlightedItemIndex], chosen);
    typeKey(window, kReturn);
    EXPECT_FALSE(isOpen());
    EXPECT_EQ([button indexOfSelectedItem], chosen);
    EXPECT_EQ(choices->count, ++count);
  }
}

TEST_F(PopUpClicks, AButtonThatHasNotBeenDrawnYetIsTheSenderOfItsAction) {
  NSPopUpButton *const fresh = popUp(@[ @"View", @"Edit" ]);
  [fresh setTarget:choices];
  [fresh setAction:@selector(chosen:)];
  [[fresh cell] attachPopUpWithFrame:[fresh bounds] inView:fresh];
  [[fresh menu] performActionForItemAtIndex:1];
  EXPECT_EQ(choices->sawSender, fresh);
}

TEST_F(PopUpClicks, TabDoesNothingInAMenuThatWasOpenedByKeyboard) {
  focus(button);
  typeKey(window, ' ');
  ASSERT_TRUE(isOpen());
  typeKey(window, NSTabCharacter);
  EXPECT_TRUE(isOpen());
  EXPECT_EQ([window firstResponder], button);
  typeKey(window, kEscape);
  EXPECT_FALSE(isOpen());
}

TEST_F(PopUpClicks, ArrowsSkipItemsThatCannotBeChosenInAMenuOpenedByKeyboard) {
  [button setAutoenablesItems:NO];
  [[button itemAtIndex:2] setEnabled:NO];
  focus(button);
  typeKey(window, ' ');
  ASSERT_TRUE(isOpen());
  typeKey(window, NSDownArrowFunctionKey);
  EXPECT_EQ([menu() highlightedItemIndex], 1);
  typeKey(window, kReturn);
  EXPECT_EQ([button indexOfSelectedItem], 1);
}

TEST_F(PopUpClicks, ItemsThatCannotBeChosenAreNot) {
  [button setAutoenablesItems:NO];
  [[button itemAtIndex:2] setEnabled:NO];
  clickAnd(row(13), {[&] { postClick(item(2)); }});
  EXPECT_EQ([button indexOfSelectedItem], 1);
  EXPECT_EQ(choices->count, 0);
}

TEST_F(PopUpClicks, TheMenuIsClosedAndTheTitleShownBeforeTheActionIsSent) {
  choices->watched = button;
  clickAnd(row(13), {[&] { postClick(item(2)); }});
  ASSERT_EQ(choices->count, 1);
  EXPECT_FALSE(choices->sawOpenMenu);
  EXPECT_EQ(choices->sawSelected, 2);
}

TEST_F(PopUpClicks, AClickAtTheEdgeOfTheScreenWhereTheMenuLiesElsewhereChoosesNothing) {
  [button selectItemAtIndex:0];
  [window setFrameOrigin:NSMakePoint(100, -190)];
  for (int i = 0; i < rows(); ++i) {
    EXPECT_EQ(clickAnd(row(i), {[&] { postClick(row(i)); }}), 1u) << i;
    EXPECT_EQ([button indexOfSelectedItem], 0) << i;
  }
}

TEST_F(PopUpClicks, AMenuThatHangsFromItsButtonStaysOpenToo) {
  [button setPullsDown:YES];
  clickAnd(row(13), {[&] { postClick(item(2)); }});
  EXPECT_FALSE(isOpen());
  EXPECT_EQ(choices->count, 1);
}
