#include <algorithm>
#include <functional>
#include <memory>
#include <set>

#import "platform/gnustep/runtime/MethodReplacement.h"
#include "tests/support/RepeatingTimer.h"
#include "tests/support/WindowServer.h"
#include "tests/ui/MenuActions.h"

namespace {

const std::string kPointingTool = "/usr/bin/xdotool";

/// Where no menu that is popped up at kPointer reaches.
constexpr NSInteger kElsewhere = -1;
constexpr NSPoint kFarAway = {1200, 100};
constexpr NSPoint kPointer = {400, 500};
constexpr NSPoint kSecondPointer = {300, 300};

/// The window server counts from the top.
std::vector<std::string> onServer(NSPoint place) {
  const double top = NSMaxY([[NSScreen mainScreen] frame]) - place.y;
  return {std::to_string(static_cast<int>(place.x)), std::to_string(static_cast<int>(top))};
}

/// The event and the view that a menu was popped up for, instead of showing it.
NSEvent *press = nil;
NSView *pressedView = nil;
bool showsNoMenu = false;

constinit platform::ReplacedMethod<void(NSMenu *, NSEvent *, NSView *)> platformPopUp;

void recordPopUp(id self, SEL selector, NSMenu *menu, NSEvent *event, NSView *view) {
  if (!showsNoMenu) return platformPopUp(self, selector, menu, event, view);
  press = event;
  pressedView = view;
}

NSWindow *windowOf(NSMenu *menu) {
  return [[menu menuRepresentation] window];
}

NSPoint middleOfItem(NSMenu *menu, NSInteger item) {
  NSMenuView *const view = [menu menuRepresentation];
  const NSRect frame = [view convertRect:[view rectOfItemAtIndex:item] toView:nil];
  return [[view window] convertBaseToScreen:NSMakePoint(NSMidX(frame), NSMidY(frame))];
}

struct FinderSelection : MenuActions {
  /// What is read, as one text per element; {"(nil)"} for no list.
  Lines read() const {
    NSArray *const list = [[delegate getSelectedFilesList] autorelease];
    if (list == nil) return {"(nil)"};
    Lines elements;
    for (NSString *element in list) elements.push_back(text(element));
    return elements;
  }
};

struct ContextMenu : MenuActions {
  /// Pops the menu up at a place of the screen, and clicks on an item or elsewhere; returns the
  /// menu's frame.
  NSRect popUpAndClick(NSInteger item, NSPoint place = kPointer) const {
    const auto act = [=, this] { return moving(item, {"click", "1"}); };
    return popUp(act, place);
  }

  /// Pops the menu up and presses keys, by the window server's names.
  void popUpAndPress(std::vector<std::string> keys) const {
    keys.insert(keys.begin(), "key");
    popUp([=] { return keys; });
  }

  /// The arguments for a move to an item or elsewhere, and others after them.
  std::vector<std::string> moving(NSInteger item, const std::vector<std::string> &then) const {
    const auto place =
        onServer(item == kElsewhere ? kFarAway : middleOfItem([delegate krvContextMenu], item));
    std::vector<std::string> arguments = {"mousemove", place[0], place[1]};
    arguments.insert(arguments.end(), then.begin(), then.end());
    return arguments;
  }

  /// Waits for the menu as a user does and then uses the mouse or the keyboard; returns the menu's
  /// frame. act: the arguments of the program that does it. before: what is done with the mouse
  /// when it has been moved to the place.
  NSRect popUp(const std::function<std::vector<std::string>()> &act, NSPoint place = kPointer,
               const std::vector<std::string> &before = {}) const {
    const auto pointer = onServer(place);
    std::vector<std::string> command = {kPointingTool, "mousemove", pointer[0], pointer[1]};
    command.insert(command.end(), before.begin(), before.end());
    ChildProcess move(command);
    EXPECT_TRUE(handleEventsUntil([&] { return NSEqualPoints([NSEvent mouseLocation], place); }));
    move.waitForEnd();
    NSMenu *const menu = [delegate krvContextMenu];
    NSRect menuFrame = NSZeroRect;
    std::unique_ptr<ChildProcess> hand;
    {
      const RepeatingTimer user(NSEventTrackingRunLoopMode, [&] {
        // Earlier, a key would be somebody else's, and a click elsewhere too.
        if (hand || ![windowOf(menu) isVisible] || !isInputGrabbed()) return;
        menuFrame = [windowOf(menu) frame];
        std::vector<std::string> arguments = act();
        arguments.insert(arguments.begin(), kPointingTool);
        hand = std::make_unique<ChildProcess>(arguments);
      });
      [delegate showContextMenu];
    }
    if (hand) hand->waitForEnd();  // the menu may close at a press, before the release
    EXPECT_FALSE([windowOf(menu) isVisible]);
    return menuFrame;
  }

  /// The windows that showContextMenu leaves behind.
  static std::vector<NSWindow *> anchors() {
    std::vector<NSWindow *> found;
    for (NSWindow *window in [NSApp windows]) {
      if ([window alphaValue] == 0 && [window styleMask] == NSBorderlessWindowMask) {
        found.push_back(window);
      }
    }
    return found;
  }
};

}  // namespace

TEST_F(FinderSelection, NoSelectionIsExactlyOneEmptyString) {
  EXPECT_EQ(read(), Lines{""});
}

TEST_F(FinderSelection, ThreeItemsAreFourElementsInTheOrderOfTheSelection) {
  NSString *const c = makeFile(@"c");
  NSString *const a = makeFile(@"a");
  NSString *const b = makeFile(@"b");
  fileManager.select(@[ c, a, b ]);
  EXPECT_EQ(read(), (Lines{text(c), text(a), text(b), ""}));
}

TEST_F(FinderSelection, ASelectedFoldersElementEndsWithASlash) {
  NSString *const folder = makeFolder(@"Plans");
  select(folder);
  EXPECT_EQ(read(), (Lines{text(folder) + "/", ""}));
}

TEST_F(FinderSelection, ANameWithALineFeedIsSplitThere) {
  NSString *const file = makeFile(@"two\nlines.txt");
  select(file);
  EXPECT_EQ(read(), (Lines{text(syncedFolder) + "/two", "lines.txt", ""}));
}

TEST_F(FinderSelection, AnItemThatIsGoneMakesTheWholeListAbsent) {
  select(makeFile(@"a"), @"/nowhere/at/all");
  EXPECT_EQ(read(), Lines{"(nil)"});
}

TEST_F(FinderSelection, AFileManagerThatFailsMakesTheListAbsentWithoutAWord) {
  for (NSDictionary *entry in @[ @{@"nil" : @1}, @{@"raise" : @"X"}, @{@"die" : @"before"} ]) {
    fileManager.setScript(entry);
    EXPECT_EQ(read(), Lines{"(nil)"});
  }
  EXPECT_EQ(log.lines(), Lines{});
  EXPECT_TRUE(user.alerts().empty());
}

TEST_F(FinderSelection, TheListBelongsToTheCaller) {
  NSArray *list = nil;
  @autoreleasepool {
    list = [delegate getSelectedFilesList];
  }
  EXPECT_EQ([list count], 1u);
  EXPECT_EQ([list retainCount], 1u);
  [list release];
}

TEST_F(ContextMenu, ShowErrorHidesAndWritesExactlyOneLine) {
  [NSApp unhideWithoutActivation];
  [delegate showError];
  expectSilence({kOutsideLine});
}

TEST_F(ContextMenu, ItOpensAtThePointer) {
  const NSRect frame = popUpAndClick(kElsewhere);
  EXPECT_NEAR(NSMinX(frame), kPointer.x, 2);
  EXPECT_NEAR(NSMaxY(frame), kPointer.y, 2);
}

TEST_F(ContextMenu, ItIsPoppedUpForAPressThatIsNoClick) {
  platformPopUp.install(object_getClass([NSMenu class]),
                        @selector(popUpContextMenu:withEvent:forView:), recordPopUp);
  showsNoMenu = true;
  [delegate showContextMenu];
  showsNoMenu = false;
  ASSERT_NE(press, nil);
  EXPECT_EQ([press type], NSLeftMouseDown);
  EXPECT_EQ([press clickCount], 0);
  EXPECT_EQ([press eventNumber], 0);
  EXPECT_EQ([press modifierFlags], 0u);
  EXPECT_EQ([press timestamp], 0.0);
  NSWindow *const anchor = [pressedView window];
  EXPECT_EQ([press windowNumber], [anchor windowNumber]);
  EXPECT_TRUE(NSEqualPoints([anchor convertBaseToScreen:[press locationInWindow]],
                            [NSEvent mouseLocation]));
  EXPECT_EQ(pressedView, [anchor contentView]);
}

TEST_F(ContextMenu, ItOffersItsFourItemsInTheirOrderWhateverIsSelected) {
  for (NSString *path in @[ makeFile(@"a"), @"/usr" ]) {
    select(path);
    popUpAndClick(kElsewhere);
    Lines titles;
    for (NSMenuItem *item in [[delegate krvContextMenu] itemArray]) {
      titles.push_back(text([item title]));
      EXPECT_TRUE([item isEnabled]) << titles.back();
    }
    EXPECT_EQ(titles, (Lines{"Copy Link", "Send File…", "Send Folder…", "Share Folder…"}));
  }
  EXPECT_EQ(fileManager.questions(), 0);
}

TEST_F(ContextMenu, EachItemSendsItsActionToTheDelegate) {
  const std::vector<std::pair<NSMenuItem *, SEL>> actions = {
      {[delegate copyLink], @selector(CopyLink:)},
      {[delegate sendFile], @selector(SendFile:)},
      {[delegate sendFolder], @selector(SendFolder:)},
      {[delegate shareFolder], @selector(ShareFolder:)}};
  NSInteger index = 0;
  for (const auto &[item, action] : actions) {
    EXPECT_EQ([item target], delegate);
    EXPECT_TRUE(sel_isEqual([item action], action));
    EXPECT_EQ([[delegate krvContextMenu] indexOfItem:item], index++);
  }
}

TEST_F(ContextMenu, ClickingElsewhereDismissesItWithoutAnAction) {
  [NSApp unhideWithoutActivation];
  popUpAndClick(kElsewhere);
  EXPECT_EQ(fileManager.questions(), 0);
  EXPECT_EQ(linesInLog(kOutsideLine), 0);
  EXPECT_FALSE([NSApp isHidden]);
}

TEST_F(ContextMenu, CopyLinkIsClickedAndTheLinkIsOnTheClipboard) {
  NSString *const file = makeFile(@"figures.csv");
  select(file);
  knowFile(file, "id-file");
  agent.answer(@"getLinkForFile:::::", success(@"https://x/file"));
  popUpAndClick(0);
  EXPECT_EQ(text(clipboardText()), "https://x/file");
  EXPECT_TRUE([NSApp isHidden]);
}

TEST_F(ContextMenu, SendFileIsClickedWhileTheApplicationIsHiddenAndItsWindowIsSeen) {
  NSString *const file = makeFile(@"figures.csv");
  select(file);
  knowFile(file, "id-file");
  [delegate hideMe];
  popUpAndClick(1);
  EXPECT_EQ(text([onlyWindow() title]), "figures.csv");
  EXPECT_FALSE([NSApp isHidden]);
}

TEST_F(ContextMenu, ShareFolderIsClickedAndItsWindowIsSeen) {
  NSString *const folder = makeFolder(@"MyDocs/Plans");
  select(folder);
  knowFolder(folder, "id-folder");
  popUpAndClick(3);
  EXPECT_NE(shareWindow(), nil);
}

TEST_F(ContextMenu, APressThatIsHeldChoosesByItsRelease) {
  NSString *const file = makeFile(@"figures.csv");
  select(file);
  knowFile(file, "id-file");
  for (const char *const button : {"1", "3"}) {
    popUp([=, this] { return moving(1, {"mouseup", button}); }, kPointer, {"mousedown", button});
    EXPECT_EQ(text([onlyWindow() title]), "figures.csv") << button;
    [onlyWindow() close];
  }
}

TEST_F(ContextMenu, TheReleaseOfAnEarlierPressLeavesItOpen) {
  NSString *const file = makeFile(@"figures.csv");
  select(file);
  knowFile(file, "id-file");
  popUp([=, this] { return moving(3, {"mouseup", "1", "key", "Up", "Up", "Return"}); });
  EXPECT_EQ(text([onlyWindow() title]), "figures.csv");
}

TEST_F(ContextMenu, ArrowsAndReturnChooseAnItem) {
  NSString *const file = makeFile(@"figures.csv");
  select(file);
  knowFile(file, "id-file");
  popUpAndPress({"Down", "Down", "Down", "Up", "Return"});
  EXPECT_EQ(text([onlyWindow() title]), "figures.csv");
}

TEST_F(ContextMenu, FirstLettersAndReturnChooseAnItem) {
  NSString *const folder = makeFolder(@"MyDocs/Plans");
  select(folder);
  knowFolder(folder, "id-folder");
  popUpAndPress({"s", "s", "s", "Return"});
  EXPECT_NE(shareWindow(), nil);
}

TEST_F(ContextMenu, TheBeginningOfATitleWithItsBlankAndReturnChooseAnItem) {
  NSString *const folder = makeFolder(@"MyDocs/Plans");
  select(folder);
  knowFolder(folder, "id-folder");
  popUpAndPress({"s", "e", "n", "d", "space", "f", "o", "Return"});
  EXPECT_EQ(text([onlyWindow() title]), "Plans");
}

TEST_F(ContextMenu, EscapeDismissesItWithoutAnAction) {
  [NSApp unhideWithoutActivation];
  popUpAndPress({"Down", "Escape"});
  EXPECT_EQ(fileManager.questions(), 0);
  EXPECT_EQ(linesInLog(kOutsideLine), 0);
  EXPECT_FALSE([NSApp isHidden]);
  EXPECT_FALSE(isInputGrabbed());
}

TEST_F(ContextMenu, ReturnWithoutAnItemDismissesItWithoutAnAction) {
  [NSApp unhideWithoutActivation];
  popUpAndPress({"Return"});
  EXPECT_EQ(fileManager.questions(), 0);
  EXPECT_FALSE([NSApp isHidden]);
}

TEST_F(ContextMenu, TwiceLeavesTwoInvisibleAnchorWindowsBehind) {
  [NSApp unhideWithoutActivation];
  const auto before = anchors();
  popUpAndClick(kElsewhere);
  popUpAndClick(kElsewhere, kSecondPointer);
  std::vector<NSWindow *> left = anchors();
  std::erase_if(left, [&](NSWindow *anchor) {
    return std::find(before.begin(), before.end(), anchor) != before.end();
  });
  ASSERT_EQ(left.size(), 2u);
  EXPECT_TRUE([left[0] isVisible]);
  EXPECT_TRUE([left[1] isVisible]);
  // In no particular order.
  const std::set<std::string> frames = {text(NSStringFromRect([left[0] frame])),
                                        text(NSStringFromRect([left[1] frame]))};
  EXPECT_EQ(frames, (std::set<std::string>{"{x = 300; y = 300; width = 200; height = 200}",
                                           "{x = 400; y = 500; width = 200; height = 200}"}));
}
