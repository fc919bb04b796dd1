// What a user gets whose agent fails while a link is copied: at once, and in the window's tab.
#import "tests/faults/FaultTest.h"
#include "tests/support/AlertUser.h"
#include "tests/ui/WindowFixtures.h"
#import "text/LocalizedText.h"

namespace {

NSString *const kFileLink = @"getLinkForFile:::::";
NSString *const kLink = @"https://x/y";

std::string clipboard() {
  return text(clipboardText());
}

// The direct copy

struct DirectCopy : FaultTest<WindowsWithoutAgent> {
  AlertUser user;

  void copy() {
    mark();
    // clang-format off
    [proxy copyLinkToClipboard:@"id-1":NO:NO];
    // clang-format on
  }

  void expectAlert(const std::string &text) const {
    ASSERT_EQ(user.alerts().size(), 1u);
    EXPECT_TRUE(user.alerts().front().shows(text));
    EXPECT_TRUE([NSApp isHidden]);
  }

  void expect(Outcome outcome) {
    switch (outcome) {
      case Outcome::Succeeds:
        EXPECT_EQ(clipboard(), text(kLink));
        EXPECT_EQ(logged(), withActivations({"copy success = 1", "Link copied successfully."}));
        EXPECT_TRUE(user.alerts().empty());
        break;
      case Outcome::SucceedsWithoutLink:
        EXPECT_EQ(clipboard(), "(nil)");
        EXPECT_EQ(logged(), withActivations({"copy success = 0", "Link copied successfully."}));
        EXPECT_TRUE(user.alerts().empty());
        break;
      case Outcome::Refused:
        EXPECT_EQ(clipboard(), "(nil)");
        EXPECT_EQ(logged(), withActivations({"Unable to copy link at this time"}));
        expectAlert("Unable to copy link at this time");
        break;
      default:
        EXPECT_EQ(clipboard(), "(nil)");
        EXPECT_EQ(logged(), withActivations({kNoReplyLine}));
        expectAlert("Cannot connect to brisvale");
    }
    EXPECT_TRUE([delegate contextMenuFlag]);
    EXPECT_TRUE(visibleWindows().empty());
  }
};

// The copy-link tab

struct CopyTab : FaultTest<WindowsWithoutAgent> {
  NSWindow *open() {
    NSWindow *const window = [openSend(1) window];
    [button(window, @"Notify me of each download") setState:NSOnState];
    mark();
    return window;
  }

  static void copy(NSWindow *window) {
    [button(window, @"Copy Link") performClick:nil];
    handlePostedEvents();
  }

  static bool sheetShows(NSWindow *window, NSString *key) {
    const auto texts = textsIn([window attachedSheet]);
    return std::find(texts.begin(), texts.end(), text(formatted(localizedText(key)))) !=
           texts.end();
  }

  void expect(NSWindow *window, Outcome outcome) const {
    ASSERT_NE([window attachedSheet], nil);
    switch (outcome) {
      case Outcome::Succeeds:
        EXPECT_EQ(clipboard(), text(kLink));
        EXPECT_EQ(logged(), withActivations({"copy success = 1"}));
        EXPECT_TRUE(sheetShows(window, @"linkCopiedSuccessMessageTextKey"));
        break;
      case Outcome::SucceedsWithoutLink:
        EXPECT_EQ(clipboard(), "(nil)");
        EXPECT_EQ(logged(), withActivations({"copy success = 0"}));
        EXPECT_TRUE(sheetShows(window, @"linkCopiedSuccessMessageTextKey"));
        break;
      case Outcome::Refused:
        EXPECT_EQ(clipboard(), "(nil)");
        EXPECT_EQ(logged(), withActivations({}));
        EXPECT_TRUE(sheetShows(window, @"unableCopyLinkMessagetextKey"));
        EXPECT_TRUE(sheetShows(window, @"unableCopyLinkInformativeKey"));
        break;
      default:
        EXPECT_EQ(clipboard(), "(nil)");
        EXPECT_EQ(logged(), withActivations({}));
        EXPECT_TRUE(sheetShows(window, @"cannotConnectToBrisvaleMessageTextKey"));
    }
    EXPECT_TRUE([window isVisible]);
    EXPECT_FALSE([delegate contextMenuFlag]);
    EXPECT_EQ([button(window, @"Notify me of each download") state], NSOnState);
  }
};

}  // namespace

TEST_P(DirectCopy, TellsWhatCameOfItAndWorksAgain) {
  begin();
  agent.injectFault(kFileLink, kLink);
  copy();
  agent.injectFaultAfterwards();
  expect(outcome());
  agent.recover(kFileLink, kLink);
  copy();
  EXPECT_EQ(clipboard(), text(kLink));
}

TEST_P(CopyTab, TellsWhatCameOfItAndWorksAgain) {
  begin();
  NSWindow *window = open();
  agent.injectFault(kFileLink, kLink);
  copy(window);
  agent.injectFaultAfterwards();
  expect(window, outcome());
  agent.recover(kFileLink, kLink);
  window = open();
  copy(window);
  expect(window, Outcome::Succeeds);
}

INSTANTIATE_TEST_SUITE_P(Row, DirectCopy, testing::ValuesIn(testedCellsOf(Column::DirectCopy)),
                         nameOfRow);
INSTANTIATE_TEST_SUITE_P(Row, CopyTab, testing::ValuesIn(testedCellsOf(Column::CopyTab)),
                         nameOfRow);
