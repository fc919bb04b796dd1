// The keys in the two message fields, and the way of the Tab key through both windows.

#include "tests/ui/WindowFixtures.h"

#include "tests/ui/ReadingOrder.h"

/// Logs which buttons are pressed: "blue" for the default button, "cancel", or "other".
@interface PressCounter : NSObject {
 @public
  std::string log;
}
- (void)watch:(NSButton *)button;
@end

@implementation PressCounter
- (void)watch:(NSButton *)button {
  [button setTarget:self];
  [button setAction:@selector(press:)];
}
- (void)press:(NSButton *)button {
  NSString *const key = [button keyEquivalent];
  log += [key isEqualToString:@"\r"]     ? "blue "
         : [key isEqualToString:@"\033"] ? "cancel "
                                         : "other ";
}
@end

namespace {

const std::string kTab = "\t";
const std::string kBackTab = "\x19";
const std::string kEscape = "\x1b";

/// A window on one of its tabs.
struct Place {
  const char *name;
  bool isShare;
  int tab;
  bool hasCancel;
};

std::string nameOf(const testing::TestParamInfo<Place> &info) {
  return info.param.name;
}

NSTextView *messageIn(NSView *view) {
  for (NSView *part in [view subviews]) {
    if ([part isKindOfClass:[NSTextView class]] && ![static_cast<NSText *>(part) isFieldEditor]) {
      return static_cast<NSTextView *>(part);
    }
    if (NSTextView *const found = messageIn(part)) return found;
  }
  return nil;
}

struct KeysInWindow : Windows, testing::WithParamInterface<Place> {
  NSWindow *window = nil;

  void SetUp() override {
    const Place &place = GetParam();
    window = place.isShare ? [openShare(place.tab) window] : [openSend(place.tab) window];
    ASSERT_NE(window, nil);
  }

  NSTextView *message() const { return messageIn([window contentView]); }

  void enterMessage() const { ASSERT_TRUE([window makeFirstResponder:message()]); }

  std::string messageText() const { return text([[message() textStorage] string]); }

  void type(const std::string &keys) const {
    postKeys(window, [NSString stringWithUTF8String:keys.c_str()]);
    handlePostedEvents();
  }

  void pressTabWith(NSUInteger modifiers) const {
    NSEvent *const event = [NSEvent keyEventWithType:NSKeyDown
                                            location:NSZeroPoint
                                       modifierFlags:modifiers
                                           timestamp:0
                                        windowNumber:[window windowNumber]
                                             context:nil
                                          characters:@"\t"
                         charactersIgnoringModifiers:@"\t"
                                           isARepeat:NO
                                             keyCode:48];
    [NSApp postEvent:event atStart:NO];
    handlePostedEvents();
  }

  id focused() const { return viewWithFocus(window); }
};

struct MessageFields : KeysInWindow {};
struct KeyLoop : KeysInWindow {};

/// The picture of the part of the window that the view and the ring around it take.
NSData *pictureOf(NSView *view) {
  constexpr CGFloat kRing = 4;
  NSView *const content = [[view window] contentView];
  NSRect area = NSInsetRect([view convertRect:[view bounds] toView:content], -kRing, -kRing);
  area = NSIntersectionRect(area, [content bounds]);
  [content display];
  [content lockFocus];
  NSBitmapImageRep *const picture =
      [[[NSBitmapImageRep alloc] initWithFocusedViewRect:area] autorelease];
  [content unlockFocus];
  return [picture TIFFRepresentation];
}

/// Lets a view be used by the user or not: disabled or hidden. No effect on what has no such state.
void setUsable(NSView *view, bool isUsable, bool byHiding) {
  if (![view isKindOfClass:[NSControl class]]) return;
  if (byHiding) return [view setHidden:!isUsable];
  [static_cast<NSControl *>(view) setEnabled:isUsable];
}

/// The same views, beginning with the one after `last`.
std::vector<id> beginningAfter(std::vector<id> views, id last) {
  const auto found = std::find(views.begin(), views.end(), last);
  EXPECT_NE(found, views.end()) << text([last description]);
  if (found != views.end()) std::rotate(views.begin(), found + 1, views.end());
  return views;
}

const Place kSend = {"Send", false, 0, true};
const Place kCopy = {"CopyLink", false, 1, true};
const Place kPeople = {"People", true, 0, false};
const Place kInvite = {"Invite", true, 1, true};

}  // namespace

INSTANTIATE_TEST_SUITE_P(In, MessageFields, testing::Values(kSend, kInvite), nameOf);
INSTANTIATE_TEST_SUITE_P(In, KeyLoop, testing::Values(kSend, kCopy, kPeople, kInvite), nameOf);

TEST_P(MessageFields, TabMovesOnAndWritesNothing) {
  enterMessage();
  const id next = [message() nextValidKeyView];
  type("a" + kTab);
  EXPECT_EQ(messageText(), "a");
  EXPECT_EQ(focused(), next);
}

TEST_P(MessageFields, ShiftTabMovesBackAndWritesNothing) {
  enterMessage();
  const id previous = [message() previousValidKeyView];
  type("a" + kBackTab);
  EXPECT_EQ(messageText(), "a");
  EXPECT_EQ(focused(), previous);
}

TEST_P(MessageFields, OptionTabWritesATab) {
  enterMessage();
  type("a");
  pressTabWith(NSAlternateKeyMask);
  EXPECT_EQ(messageText(), "a\t");
  EXPECT_EQ(focused(), message());
}

TEST_P(MessageFields, ControlTabWritesATab) {
  enterMessage();
  type("a");
  pressTabWith(NSCommandKeyMask);  // the Control key, see MacKeys
  EXPECT_EQ(messageText(), "a\t");
  EXPECT_EQ(focused(), message());
}

TEST_P(MessageFields, ReturnAndEnterAreLineBreaksAndDoNotSend) {
  enterMessage();
  type("a\rb\x03");
  EXPECT_EQ(messageText(), "a\nb\n");
  EXPECT_EQ([window attachedSheet], nil);
}

TEST_P(MessageFields, EscapeClosesTheWindow) {
  @autoreleasepool {
    enterMessage();
    type("half a message" + kEscape);
  }
  EXPECT_TRUE(handleEventsUntil([] { return visibleWindows().empty(); }));
  EXPECT_EQ(log.lines(), withActivations({"window closed"}));
}

TEST_P(KeyLoop, TheKeyboardBeginsAtTheFirstControlBelowTheTabs) {
  const auto views = viewsInReadingOrder(window);
  ASSERT_GE(views.size(), 2u);
  EXPECT_TRUE([views.at(0) isKindOfClass:[NSTabView class]]);
  EXPECT_EQ(focused(), views.at(1));
}

TEST_P(KeyLoop, TabGoesThroughAllControlsInTheOrderOfReadingAndAround) {
  const auto views = beginningAfter(viewsInReadingOrder(window), focused());
  EXPECT_EQ(visitedByTab(window, views.size()), views);
}

TEST_P(KeyLoop, ShiftTabGoesTheSameWayBack) {
  auto views = beginningAfter(viewsInReadingOrder(window), focused());
  std::reverse(views.begin(), views.end() - 1);
  EXPECT_EQ(visitedByTab(window, views.size(), true), views);
}

TEST_P(KeyLoop, ControlsThatAreHiddenOrDisabledAreSkipped) {
  const auto all = viewsInReadingOrder(window);
  for (const bool hides : {false, true}) {
    for (const std::size_t first : {1u, 2u}) {
      for (std::size_t i = first; i < all.size(); i += 2) setUsable(all[i], false, hides);
      auto views = beginningAfter(viewsInReadingOrder(window), visitedByTab(window, 1).back());
      EXPECT_EQ(visitedByTab(window, views.size()), views) << hides << first;
      for (const id view : all) setUsable(view, true, hides);
    }
  }
}

TEST_P(KeyLoop, ReturnAndEnterPressTheBlueButtonAndEscapeCancelFromEachControl) {
  PressCounter *const presses = [[[PressCounter alloc] init] autorelease];
  const auto views = viewsInReadingOrder(window);
  for (const id view : views) {
    if ([view isKindOfClass:[NSButton class]]) [presses watch:view];
  }
  std::string expected;
  for (const id view : views) {
    if (view == message()) continue;  // Return writes a line break there
    [window makeFirstResponder:view];
    for (const char *key : {"\r", "\x03", "\x1b"}) type(key);
    expected += GetParam().hasCancel ? "blue blue cancel " : "blue blue ";
  }
  EXPECT_EQ(presses->log, expected);
}

TEST_P(KeyLoop, WhatHasTheKeyboardIsSeen) {
  for (const id view : viewsInReadingOrder(window)) {
    [window makeFirstResponder:nil];
    NSData *const without = pictureOf(view);
    [window makeFirstResponder:view];
    EXPECT_FALSE([pictureOf(view) isEqual:without]) << text([view description]);
  }
}

TEST_P(KeyLoop, EachControlHasATitleOrASpokenName) {
  for (const id view : viewsInReadingOrder(window)) {
    NSString *name = [view accessibilityAttributeValue:NSAccessibilityDescriptionAttribute];
    // What a pop-up shows is its value and no name.
    const bool hasTitle =
        [view isKindOfClass:[NSButton class]] && ![view isKindOfClass:[NSPopUpButton class]];
    if (hasTitle) name = [view title];
    if ([view isKindOfClass:[NSTabView class]]) name = [[view selectedTabViewItem] label];
    EXPECT_GT([name length], 0u) << text([view description]);
  }
}

TEST_P(KeyLoop, FromNoControlTabGoesToTheFirstOneAlsoAfterTheTabWasChanged) {
  NSTabView *const tabs = viewsInReadingOrder(window).front();
  for (NSInteger step = 0; step < 2; ++step) {
    [tabs selectTabViewItemAtIndex:(GetParam().tab + step) % 2];
    [window makeFirstResponder:nil];
    EXPECT_EQ(visitedByTab(window, 1).back(), viewsInReadingOrder(window).at(1)) << step;
  }
}

TEST_P(KeyLoop, ATabThatIsOpenedHasTheKeyboardInItsFirstControl) {
  NSTabView *const tabs = viewsInReadingOrder(window).front();
  [tabs selectTabViewItemAtIndex:1 - GetParam().tab];
  EXPECT_EQ(focused(), viewsInReadingOrder(window).at(1));
  const auto views = beginningAfter(viewsInReadingOrder(window), focused());
  EXPECT_EQ(visitedByTab(window, views.size()), views);
}
