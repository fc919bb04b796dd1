#import "tests/ui/MenuActions.h"

namespace {

const std::string kMessage = "Veldane Brisvale";
const std::string kNotYet =
    "This item is not on Brisvale yet. Wait until it has finished syncing, then try again.";
const std::string kNotAllowed =
    "You do not have permission to share this folder. Only folders in your own MyDocs can be "
    "shared.";
const std::string kEnd = "Share Folder action..";

struct ShareFolderAction : MenuActions {
  NSString *const folder = makeFolder(@"MyDocs/Project Aurora");

  ShareFolderAction() {
    select(folder);
    knowFolder(folder, "id-folder");
  }

  void shareFolder() const { [delegate ShareFolder:nil]; }
};

}  // namespace

TEST_F(ShareFolderAction, OpensTheShareWindowForTheFolder) {
  [delegate hideMe];
  shareFolder();
  BrisvaleTabController *const controller = shareWindow();
  ASSERT_NE(controller, nil);
  NSTabView *const tabs = [controller shareFolderTab];
  EXPECT_EQ(text([[controller window] title]), "Project Aurora");
  EXPECT_EQ([tabs indexOfTabViewItem:[tabs selectedTabViewItem]], 0);
  EXPECT_EQ(text([[controller givePermissionTab] filePath]), "id-folder");
  EXPECT_TRUE([[controller givePermissionTab] isFileId]);
  EXPECT_EQ(text([[controller sendInviteTab] filePath]), "id-folder");
  EXPECT_TRUE([[controller sendInviteTab] isFileId]);
  EXPECT_EQ(log.lines(), withActivations({kEnd}));
  EXPECT_FALSE([delegate contextMenuFlag]);
  EXPECT_FALSE([NSApp isHidden]);
}

TEST_F(ShareFolderAction, OfSeveralSelectedItemsTheFirstIsShared) {
  NSString *const other = makeFolder(@"MyDocs/Other");
  knowFolder(other, "id-other");
  select(folder, other);
  shareFolder();
  EXPECT_EQ(text([onlyWindow() title]), "Project Aurora");
  EXPECT_EQ(text([[shareWindow() givePermissionTab] filePath]), "id-folder");
}

TEST_F(ShareFolderAction, TheAccessListIsAskedForByServerId) {
  shareFolder();
  EXPECT_TRUE(handleEventsUntil([&] { return [agent.operations() count] == 1; }))
      << text([agent.operations() description]);
  EXPECT_EQ(text([agent.operations() lastObject]), "getAccess::");
  EXPECT_TRUE(([lastArguments() isEqual:@[ @"id-folder", @1 ]]));
}

TEST_F(ShareFolderAction, TheFolderMyDocsIsTheHomeFolder) {
  select(makeFolder(@"MyDocs"));
  shareFolder();
  EXPECT_EQ(text([onlyWindow() title]), "MyDocs");
  EXPECT_EQ(text([[shareWindow() sendInviteTab] filePath]), "home-1");
}

TEST_F(ShareFolderAction, AFolderMyDocsOldAndWhatIsInItPasses) {
  for (NSString *path in @[ @"MyDocsOld", @"MyDocsOld/inside" ]) {
    NSString *const old = makeFolder(path);
    select(old);
    knowFolder(old, "id-old");
    shareFolder();
    EXPECT_EQ(text([onlyWindow() title]), text([path lastPathComponent]));
  }
}

TEST_F(ShareFolderAction, APathInOtherLetterCasePasses) {
  NSString *const lower = makeFolder(@"mydocs/Plans");
  select(lower);
  knowFolder(lower, "id-lower");
  [delegate setSyncedFilePath:[syncedFolder uppercaseString]];
  shareFolder();
  EXPECT_EQ(text([onlyWindow() title]), "Plans");
}

TEST_F(ShareFolderAction, ASelectedFileLosesItsLastCharacterAndIsLookedUpAsAFolder) {
  select(makeFile(@"MyDocs/figures.csv"));
  shareFolder();
  EXPECT_EQ(
      engine.calls[1],
      "BvGetFolderIdByName " + text([syncedFolder stringByAppendingString:@"/MyDocs/figures.cs"]));
  expectAlert(kMessage, kNotYet, {kNoIdLine, kEnd});
}

TEST_F(ShareFolderAction, AFolderOfTheSyncedFolderOutsideMyDocsMayNotBeShared) {
  NSString *const foreign = makeFolder(@"Shared with me");
  select(foreign);
  knowFolder(foreign, "id-foreign");
  shareFolder();
  expectAlert(kNotAllowed, "", {kEnd});
  EXPECT_TRUE(engine.calls.empty());
}

TEST_F(ShareFolderAction, AFolderOutsideTheSyncedFolderGetsTheSameAlert) {
  select(@"/usr");
  shareFolder();
  expectAlert(kNotAllowed, "", {kEnd});
}

TEST_F(ShareFolderAction, NothingSelectedGetsTheSameAlert) {
  select(nil);
  shareFolder();
  expectAlert(kNotAllowed, "", {kEnd});
}

TEST_F(ShareFolderAction, AnAbsentSelectionIsTheEmptyOne) {
  fileManager.setScript(@{@"nil" : @1});
  shareFolder();
  expectAlert(kNotAllowed, "", {kEnd});
}

TEST_F(ShareFolderAction, AFolderWithoutAnIdIsToldAndEndsHidden) {
  engine.folders.clear();
  shareFolder();
  expectAlert(kMessage, kNotYet, {kNoIdLine, kEnd});
  EXPECT_TRUE([delegate contextMenuFlag]);
  EXPECT_TRUE(flagInAlert);
}

TEST_F(ShareFolderAction, MyDocsHasNoIdWithTheAgentUnreachableSinceLaunch) {
  [delegate setHomeFolderInfo:@{}];
  select(makeFolder(@"MyDocs"));
  shareFolder();
  expectAlert(kMessage, kNotYet, {kNoIdLine, kEnd});
}

TEST_F(ShareFolderAction, AnOpenWindowClosesFirstEvenWhenTheActionFails) {
  select(nil);
  ASSERT_NE(openSend(), nil);
  shareFolder();
  expectAlert(kNotAllowed, "",
              {"recieve Notification close send/copy window.", "window closed", kEnd});
}

TEST_F(ShareFolderAction, ClosingTheWindowSetsTheFlagAndHidesTheApplication) {
  shareFolder();
  [onlyWindow() performClose:nil];
  EXPECT_TRUE([delegate contextMenuFlag]);
  EXPECT_TRUE([NSApp isHidden]);
}
