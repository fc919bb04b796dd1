// The keys in the two message fields, and the way of the Tab key through both windows.

#include "tests/ui/WindowFixtures.h"

namespace {

const std::string kTab = "\t";
const std::string kBackTab = "\x19";
const std::string kEscape = "\x1b";

/// A window on one of its tabs.
struct Place {
  const char *name;
  bool isShare;
  int tab;
  /// The titles of its buttons, pop-ups and boxes.
  std::vector<NSString *> titles;
  /// What else it has.
  bool hasRecipients;
  bool hasMessage;
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

  /// The control with the focus; for a field that is edited, the field.
  id focused() const {
    id const responder = [window firstResponder];
    if (![responder isKindOfClass:[NSTextView class]] || ![responder isFieldEditor]) {
      return responder;
    }
    return [static_cast<NSTextView *>(responder) delegate];
  }

  /// The controls that had the focus after so many presses of a key.
  std::vector<id> visited(const std::string &key, int presses) const {
    std::vector<id> all;
    for (int i = 0; i < presses; ++i) {
      type(key);
      all.push_back(focused());
    }
    return all;
  }

  /// All key views in the tab.
  std::vector<id> controls() const {
    const Place &place = GetParam();
    std::vector<id> all;
    for (NSString *title : place.titles) all.push_back(button(window, title));
    if (place.hasMessage) all.push_back(message());
    return all;
  }
};

struct MessageFields : KeysInWindow {};
struct KeyLoop : KeysInWindow {};

bool isVisited(const std::vector<id> &visited, Class cls) {
  return std::any_of(visited.begin(), visited.end(),
                     [cls](id each) { return [each isKindOfClass:cls]; });
}

const Place kSend = {"Send",
                     false,
                     0,
                     {@"Unlimited", @"Send me a copy", @"Notify me of each download",
                      @"Ask for their e-mail address", @"Cancel", @"Send"},
                     true,
                     true};
const Place kCopy = {"CopyLink",
                     false,
                     1,
                     {@"Unlimited", @"Notify me of each download",
                      @"Ask for an e-mail address first", @"Cancel", @"Copy Link"},
                     false,
                     false};
const Place kPeople = {"People", true, 0, {@"Done"}, false, false};
const Place kInvite = {"Invite", true, 1, {@"Read only", @"Cancel", @"Invite"}, true, true};

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

TEST_P(MessageFields, ReturnIsALineBreakAndDoesNotSend) {
  enterMessage();
  type("a\rb");
  EXPECT_EQ(messageText(), "a\nb");
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

TEST_P(KeyLoop, TabReachesEveryControlAndComesAroundAgain) {
  const auto all = visited(kTab, 24);
  for (const id control : controls()) {
    EXPECT_GE(std::count(all.begin(), all.end(), control), 2) << text([control description]);
  }
  EXPECT_EQ(isVisited(all, [NSTokenField class]), GetParam().hasRecipients);
  EXPECT_TRUE(isVisited(all, [NSTabView class]));
}

TEST_P(KeyLoop, ShiftTabReachesEveryControlAndComesAroundAgain) {
  const auto all = visited(kBackTab, 24);
  for (const id control : controls()) {
    EXPECT_GE(std::count(all.begin(), all.end(), control), 2) << text([control description]);
  }
  EXPECT_EQ(isVisited(all, [NSTokenField class]), GetParam().hasRecipients);
}

TEST_P(KeyLoop, ShiftTabGoesTheSameWayBack) {
  auto there = visited(kTab, 10);
  auto back = visited(kBackTab, 9);
  there.pop_back();
  std::reverse(there.begin(), there.end());
  EXPECT_EQ(there, back);
}
