#import "tests/e2e/SendTab.h"
#import "tests/e2e/ShareTab.h"
#import "tests/e2e/WindowTest.h"
#include "tests/support/ProcessActivity.h"

namespace {

/// An unused application costs nothing, before and after its windows were used.
struct Idle : WindowTest, ScreenTab {
  static constexpr int kWindows = 3;

  void SetUp() override {
    WindowTest::SetUp();
    ASSERT_TRUE(becomesIdle());
  }

  bool becomesIdle() const { return waitUntilIdle(application.process().pid()); }

  template <class Call>
  bool openTab(const Call &call, const std::string &title) {
    if (!open(call)) return false;
    window = onlyWindow(title);
    return !window.number.empty();
  }

  bool openCopyTab() { return openTab(SendCall(), SendCall().name); }
  bool openSendTab() { return openTab(SendCall{.tab = 0}, SendCall().name); }
  bool openInviteTab() { return openTab(ShareCall{.tab = 1}, "Share Folder"); }

  static bool closeByEscape() {
    pressKeys({"Escape"});
    return waitForWindows(0);
  }
};

}  // namespace

TEST_F(Idle, AfterWindowsThatCopiedALinkTheApplicationIsNotWoken) {
  agent->answer(kFileLink, success(@"https://x/y"));
  for (int i = 0; i < kWindows; ++i) {
    ASSERT_TRUE(openCopyTab());
    ASSERT_TRUE(pressReturnAndSeeSheet());
    ASSERT_TRUE(waitForWindows(0));
  }
  EXPECT_TRUE(becomesIdle());
}

TEST_F(Idle, AfterWindowsThatSentAMailTheApplicationIsNotWoken) {
  agent->answer(@"sendFile:::::::::", success(@""));
  for (int i = 0; i < kWindows; ++i) {
    ASSERT_TRUE(openSendTab());
    typeText("guest@example.org,");
    ASSERT_TRUE(clickAndSeeSheet(kSendButton));
    ASSERT_TRUE(waitForWindows(0));
  }
  EXPECT_TRUE(becomesIdle());
}

TEST_F(Idle, AfterWindowsThatInvitedSomebodyTheApplicationIsNotWoken) {
  agent->answer(@"grantAccess:::::::::", success(@""));
  for (int i = 0; i < kWindows; ++i) {
    ASSERT_TRUE(openInviteTab());
    typeText("guest@example.org,");
    ASSERT_TRUE(clickAndSeeSheet(kInviteButton));
    ASSERT_TRUE(waitForWindows(1));
    ASSERT_TRUE(closeByEscape());
  }
  EXPECT_TRUE(becomesIdle());
}

TEST_F(Idle, AWindowWhoseIndicatorIsHiddenAgainDoesNotWakeTheApplication) {
  agent->answer(kFileLink, refusal(1, @"quota"));
  ASSERT_TRUE(openCopyTab());
  ASSERT_TRUE(pressReturnAndSeeSheet());
  ASSERT_TRUE(dismissAlert());
  EXPECT_TRUE(becomesIdle());
}

TEST_F(Idle, AfterWindowsThatWereLeftWithAnAlertTheApplicationIsNotWoken) {
  agent->answer(kFileLink, refusal(1, @"quota"));
  for (int i = 0; i < kWindows; ++i) {
    ASSERT_TRUE(openCopyTab());
    ASSERT_TRUE(pressReturnAndSeeSheet());
    ASSERT_TRUE(open(SendCall{.name = "next.txt"}));
    ASSERT_NE(onlyWindow("next.txt").number, "");
    ASSERT_TRUE(closeByEscape());
  }
  EXPECT_TRUE(becomesIdle());
}

TEST_F(Idle, AfterWindowsThatWereLeftWithSelectedTextTheApplicationIsNotWoken) {
  for (int i = 0; i < kWindows; ++i) {
    ASSERT_TRUE(openSendTab());
    click(kSendMessage);
    typeText("Dear all");
    pressKeys({"ctrl+a"});
    ASSERT_TRUE(serves());
    ASSERT_TRUE(waitForWindows(0));
  }
  EXPECT_TRUE(becomesIdle());
}

TEST_F(Idle, AfterWindowsThatWereLeftWithACaretTheApplicationIsNotWoken) {
  for (int i = 0; i < kWindows; ++i) {
    ASSERT_TRUE(openSendTab());
    typeText("oli");
    ASSERT_TRUE(serves());
    ASSERT_TRUE(waitForWindows(0));
    ASSERT_TRUE(openInviteTab());
    click(kInviteMessage);
    typeText("Dear all");
    ASSERT_TRUE(serves());
    ASSERT_TRUE(waitForWindows(0));
  }
  EXPECT_TRUE(becomesIdle());
}
