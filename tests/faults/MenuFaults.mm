// What a user gets whose agent fails after an action of the context menu.
#import "tests/faults/EndedThreads.h"
#import "tests/faults/FaultTest.h"
#include "tests/ui/MenuActions.h"

namespace {

NSString *const kFileLink = @"getLinkForFile:::::";
NSString *const kList = @"getAccess::";
NSString *const kLink = @"https://x/y";

struct Menu : FaultTest<MenuActionsWithoutAgent> {
  NSString *const file = makeFile(@"MyDocs/figures.csv");
  NSString *const folder = makeFolder(@"MyDocs/Plans");

  Menu() {
    knowFile(file, "id-file");
    knowFolder(folder, "id-folder");
  }
};

struct MenuCopyLink : Menu {
  void copy() {
    select(file);
    mark();
    [delegate CopyLink:nil];
  }

  void expectOneAlert(NSString *key) const {
    ASSERT_EQ(user.alerts().size(), 1u);
    EXPECT_TRUE(user.alerts().front().shows(shown(key)));
  }

  void expectNothingCopied(const std::string &line, NSString *keyOfAlert) const {
    EXPECT_EQ(text(clipboardText()), "(nil)");
    EXPECT_EQ(logged(), withActivations({line}));
    expectOneAlert(keyOfAlert);
  }

  void expect(Outcome outcome) const {
    switch (outcome) {
      case Outcome::Succeeds:
        EXPECT_EQ(text(clipboardText()), text(kLink));
        EXPECT_EQ(logged(), withActivations({"copy success = 1", "Link copied successfully."}));
        break;
      case Outcome::SucceedsWithoutLink:
        EXPECT_EQ(text(clipboardText()), "(nil)");
        EXPECT_EQ(logged(), withActivations({"copy success = 0", "Link copied successfully."}));
        break;
      case Outcome::Refused:
        expectNothingCopied("Unable to copy link at this time", @"unableCopyLinkMessagetextKey");
        break;
      default:
        expectNothingCopied(kNoReplyLine, @"cannotConnectToBrisvaleMessageTextKey");
    }
    EXPECT_TRUE([NSApp isHidden]);
    EXPECT_TRUE([delegate contextMenuFlag]);
    EXPECT_TRUE(visibleWindows().empty());
  }
};

struct MenuSend : Menu {};

struct MenuShare : Menu {
  void share() {
    closeWindows();
    select(folder);
    mark();
    EndedThreads *const threads = [[EndedThreads alloc] init];
    [delegate ShareFolder:nil];
    EXPECT_TRUE(handleEventsUntil([&] { return threads->count > 0; }));
    handlePostedEvents();
    [threads release];
  }

  void expect(Outcome outcome) const {
    ASSERT_NE(shareWindow(), nil);
    const auto texts = textsIn([shareWindow() window]);
    NSString *const key = outcome == Outcome::Nobody    ? @"notSharingTextMessageKey"
                          : outcome == Outcome::NoReply ? @"cannotConnectToBrisvaleNowTextKey"
                                                        : @"usersTextKey";
    EXPECT_NE(std::find(texts.begin(), texts.end(), shown(key)), texts.end());
    ASSERT_EQ(logged(), withActivations({"Share Folder action.."}));
    EXPECT_EQ(logged().front(), kActivated);
    EXPECT_FALSE([delegate contextMenuFlag]);
    EXPECT_TRUE(user.alerts().empty());
  }
};

NSArray *onePerson() {
  return @[ @{
    @"type" : @"user",
    @"candownload" : @1,
    @"userfname" : @"anna",
    @"userlname" : @"meier",
    @"useremail" : @"anna@x.de"
  } ];
}

}  // namespace

TEST_P(MenuCopyLink, TellsWhatCameOfItAndWorksAgain) {
  begin();
  agent.injectFault(kFileLink, kLink);
  copy();
  agent.injectFaultAfterwards();
  expect(outcome());
  agent.recover(kFileLink, kLink);
  copy();
  EXPECT_EQ(text(clipboardText()), text(kLink));
}

TEST_P(MenuSend, OpensItsWindowWhateverTheAgentDoes) {
  begin();
  agent.injectFault(kFileLink, kLink);
  select(file);
  [delegate SendFile:nil];
  ASSERT_NE(sendWindow(), nil);
  expectItem(sendWindow(), "id-file", false);
  select(folder);
  [delegate SendFolder:nil];
  ASSERT_NE(sendWindow(), nil);
  expectItem(sendWindow(), "id-folder", true);
  EXPECT_FALSE([delegate contextMenuFlag]);
  EXPECT_TRUE(user.alerts().empty());
  EXPECT_EQ(agent.callsOf(kFileLink), 0u);
}

TEST_P(MenuShare, ShowsWhatCameOfItAndWorksAgain) {
  begin();
  agent.injectFault(kList, onePerson());
  share();
  agent.injectFaultAfterwards();
  expect(outcome());
  agent.recover(kList, onePerson());
  share();
  expect(Outcome::Succeeds);
}

INSTANTIATE_TEST_SUITE_P(Row, MenuCopyLink, testing::ValuesIn(testedCellsOf(Column::MenuCopyLink)),
                         nameOfRow);
INSTANTIATE_TEST_SUITE_P(Row, MenuSend, testing::ValuesIn(testedCellsOf(Column::MenuSend)),
                         nameOfRow);
INSTANTIATE_TEST_SUITE_P(Row, MenuShare, testing::ValuesIn(testedCellsOf(Column::MenuShare)),
                         nameOfRow);
