#include "tests/ui/MacActivation.h"
#include "tests/ui/MenuActions.h"

namespace {

struct HiddenApplication : MenuActions {
  const MacActivation mac;
  NSString *const file = makeFile(@"MyDocs/figures.csv");
  NSString *const folder = makeFolder(@"MyDocs/Plans");

  HiddenApplication() {
    knowFile(file, "id-file");
    knowFolder(folder, "id-folder");
    agent.answer(@"getAccess::", success([NSArray array]));
    [delegate hideMe];
    EXPECT_TRUE([NSApp isHidden]);
  }

  /// Expects that one window can be seen.
  static void expectSeen() {
    EXPECT_NE(onlyWindow(), nil);
    EXPECT_FALSE([NSApp isHidden]);
  }
};

}  // namespace

TEST_F(HiddenApplication, IsShownWithTheWindowThatSendFileOpens) {
  select(file);
  [delegate SendFile:nil];
  expectSeen();
}

TEST_F(HiddenApplication, IsShownWithTheWindowThatSendFolderOpens) {
  select(folder);
  [delegate SendFolder:nil];
  expectSeen();
}

TEST_F(HiddenApplication, IsShownWithTheWindowThatShareFolderOpens) {
  select(folder);
  [delegate ShareFolder:nil];
  expectSeen();
}

TEST_F(HiddenApplication, IsShownWithTheWindowThatThePluginOpens) {
  openSend(1);
  expectSeen();
}

TEST_F(HiddenApplication, IsShownWithTheWindowThatFollowsAnother) {
  select(file);
  [delegate SendFile:nil];
  select(folder);
  [delegate ShareFolder:nil];
  expectSeen();
}

TEST_F(HiddenApplication, IsNotActivatedByTheContextMenusWindow) {
  select(file);
  [delegate SendFile:nil];
  EXPECT_EQ(mac.requests(), 0);
}

TEST_F(HiddenApplication, IsShownWithAnAlertOfAnAction) {
  select(makeFileOutside());
  [delegate ShareFolder:nil];
  EXPECT_FALSE(isHiddenInAlert);
  EXPECT_TRUE([NSApp isHidden]) << "after it";
}

TEST_F(HiddenApplication, IsShownWithAnAlertOfThePluginsCopy) {
  agent.answer(@"getLinkForFile:::::", refusal(1, @"no"));
  // clang-format off
  [proxy copyLinkToClipboard:@"id-1":NO:NO];
  // clang-format on
  EXPECT_FALSE(isHiddenInAlert);
  EXPECT_TRUE([NSApp isHidden]) << "after it";
}

TEST_F(HiddenApplication, IsShownWithASuccess) {
  CopyLinkController *const tab = [openSend(1) sendCopyFile];
  [NSApp hide:nil];
  [tab showSuccessModalWindow:@"linkCopiedSuccessMessageTextKey"];
  expectSeen();
}
