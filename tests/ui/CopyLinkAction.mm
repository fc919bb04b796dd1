#import "tests/support/Arguments.h"
#import "tests/ui/MenuActions.h"

namespace {

NSString *const kFileLink = @"getLinkForFile:::::";
NSString *const kFolderLink = @"getLinkForFolder:::::";

const std::string kUnable = "The link could not be copied.";
const std::string kUnreachable = "Brisvale cannot be reached.";
const std::string kUnreachableMore =
    "Check your internet connection and that Brisvale is running, then try again. Nothing you "
    "entered is lost.";
const std::string kNoReplyLine = "Getting null data from rest API(machine offline or server down)";
const std::string kRefusedLine = "Unable to copy link at this time";

struct CopyLinkAction : MenuActions {
  NSString *const file = makeFile(@"MyDocs/figures.csv");

  CopyLinkAction() {
    select(file);
    knowFile(file, "id-file");
  }

  void copyLink() const { [delegate CopyLink:nil]; }
};

}  // namespace

TEST_F(CopyLinkAction, AFilesLinkIsOnTheClipboardAndTheApplicationHidden) {
  agent.answer(kFileLink, success(@"https://x/file"));
  [NSApp unhideWithoutActivation];
  copyLink();
  EXPECT_EQ(text(clipboardText()), "https://x/file");
  expectSilence({"copy success = 1", "Link copied successfully."});
}

TEST_F(CopyLinkAction, AsksForUnlimitedDownloadsWithNotificationByServerId) {
  agent.answer(kFileLink, success(@"https://x/file"));
  copyLink();
  EXPECT_TRUE(([lastArguments() isEqual:@[ @"id-file", @1, @0, @"-1", @1 ]]))
      << text(lastArguments());
}

TEST_F(CopyLinkAction, AFolderIsLookedUpWithoutItsSlashAndCopiedAsAFolder) {
  NSString *const folder = makeFolder(@"Plans");
  select(folder);
  knowFolder(folder, "id-folder");
  agent.answer(kFolderLink, success(@"https://x/folder"));
  copyLink();
  EXPECT_EQ(text(clipboardText()), "https://x/folder");
  EXPECT_TRUE(([lastArguments() isEqual:@[ @"id-folder", @1, @0, @"-1", @1 ]]));
  EXPECT_EQ(engine.calls,
            (Lines{"BvInitialize", "BvGetFolderIdByName " + text(folder), "BvUninitialize"}));
  expectSilence({"is folder", "copy success = 1", "Link copied successfully."});
}

TEST_F(CopyLinkAction, TheFolderMyDocsIsTheHomeFolder) {
  select(makeFolder(@"MyDocs"));
  agent.answer(kFolderLink, success(@"https://x/home"));
  copyLink();
  EXPECT_EQ(text([lastArguments() objectAtIndex:link_operation::kPathOrId]), "home-1");
}

TEST_F(CopyLinkAction, NoKeyOrClickOfTheWaitingTimeIsLeftForTheAlert) {
  agent.answer(kFileLink, refusal(1, @"no"));
  postKeys(nil, @"\r");
  postClick(nil, NSZeroPoint);
  copyLink();
  ASSERT_EQ(user.alerts().size(), 1u);
  EXPECT_FALSE(user.alerts()[0].foundInput);
}

TEST_F(CopyLinkAction, OfSeveralSelectedItemsOnlyTheFirstIsActedOn) {
  agent.answer(kFileLink, success(@"https://x/file"));
  select(file, makeFileOutside());
  copyLink();
  EXPECT_EQ(text([lastArguments() objectAtIndex:link_operation::kPathOrId]), "id-file");
  EXPECT_EQ([agent.operations() count], 1u);
  EXPECT_TRUE(user.alerts().empty());
}

TEST_F(CopyLinkAction, TheSelectionIsReadAfreshByEachAction) {
  agent.answer(kFileLink, success(@"https://x/file"));
  copyLink();
  NSString *const other = makeFile(@"other.txt");
  knowFile(other, "id-other");
  select(other);
  copyLink();
  EXPECT_EQ(text([lastArguments() objectAtIndex:link_operation::kPathOrId]), "id-other");
  EXPECT_EQ(fileManager.questions(), 2);
}

TEST_F(CopyLinkAction, APathInOtherLetterCaseIsInTheSyncedFolder) {
  agent.answer(kFileLink, success(@"https://x/file"));
  [delegate setSyncedFilePath:[syncedFolder uppercaseString]];
  copyLink();
  EXPECT_EQ(text(clipboardText()), "https://x/file");
}

TEST_F(CopyLinkAction, APathThatContainsTheSyncedFoldersAnywhereIsInIt) {
  agent.answer(kFileLink, success(@"https://x/file"));
  [delegate setSyncedFilePath:@"/Users/ada/Brisvale"];
  copyLink();
  EXPECT_EQ(text(clipboardText()), "https://x/file");
}

TEST_F(CopyLinkAction, NothingSelectedEndsSilently) {
  select(nil);
  copyLink();
  expectSilence({kOutsideLine});
  EXPECT_EQ([agent.operations() count], 0u);
  EXPECT_EQ(text(clipboardText()), "former contents");
  EXPECT_TRUE(engine.calls.empty());
}

TEST_F(CopyLinkAction, AnAbsentSelectionIsTheEmptyOne) {
  for (NSDictionary *entry in @[ @{@"nil" : @1}, @{@"die" : @"before"} ]) {
    fileManager.setScript(entry);
    copyLink();
  }
  expectSilence({kOutsideLine, kOutsideLine});
  EXPECT_TRUE(engine.calls.empty());
}

TEST_F(CopyLinkAction, AnItemOutsideTheSyncedFolderEndsSilently) {
  select(makeFileOutside());
  copyLink();
  expectSilence({kOutsideLine});
  EXPECT_EQ(text(clipboardText()), "former contents");
}

TEST_F(CopyLinkAction, AFolderOutsideIsSeenToBeOneBeforeItIsFoundToLieOutside) {
  select(@"/usr");
  copyLink();
  expectSilence({"is folder", kOutsideLine});
}

TEST_F(CopyLinkAction, AnItemWithoutAnIdIsALinkThatCouldNotBeCopied) {
  engine.files.clear();
  copyLink();
  expectAlert(kUnable, "", {kNoIdLine});
  EXPECT_EQ([agent.operations() count], 0u);
  EXPECT_EQ(text(clipboardText()), "former contents");
}

TEST_F(CopyLinkAction, AnEmptyOrAbsentIdIsNone) {
  knowFile(file, "");
  copyLink();
  expectAlert(kUnable, "", {kNoIdLine});
}

TEST_F(CopyLinkAction, ALibraryThatDoesNotBeginGivesNoId) {
  engine.initializeCode = 9;
  copyLink();
  expectAlert(kUnable, "", {kNoIdLine});
}

TEST_F(CopyLinkAction, MyDocsHasNoIdWithTheAgentUnreachableSinceLaunch) {
  [delegate setHomeFolderInfo:@{}];
  select(makeFolder(@"MyDocs"));
  copyLink();
  expectAlert(kUnable, "", {"is folder", kNoIdLine});
}

TEST_F(CopyLinkAction, ARefusalIsLoggedAndShownWithoutInformativeText) {
  agent.answer(kFileLink, refusal(1, @"quota"));
  copyLink();
  expectAlert(kUnable, "", {kRefusedLine});
  EXPECT_EQ(clipboardInAlert, nil);
}

TEST_F(CopyLinkAction, WithTheAgentNotAnsweringTheClipboardIsEmptyWhenTheAlertShows) {
  agent.setScript(@{kFileLink : @{@"nil" : @1}});
  copyLink();
  expectAlert(kUnreachable, kUnreachableMore, {kNoReplyLine});
  EXPECT_EQ(clipboardInAlert, nil);
}

TEST_F(CopyLinkAction, AnEmptyReplyIsNoReply) {
  copyLink();
  expectAlert(kUnreachable, kUnreachableMore, {kNoReplyLine});
}

TEST_F(CopyLinkAction, AnAgentThatDiesDuringTheCallIsNoReply) {
  agent.setScript(@{kFileLink : @{@"die" : @"before"}});
  copyLink();
  expectAlert(kUnreachable, kUnreachableMore, {kNoReplyLine});
}

TEST_F(CopyLinkAction, TheFlagStaysWhatItIs) {
  agent.setScript(@{kFileLink : @[ @{@"reply" : success(@"https://x/y")}, @{@"nil" : @1} ]});
  for (const BOOL flag : {NO, YES}) {
    [delegate setContextMenuFlag:flag];
    copyLink();
    EXPECT_EQ([delegate contextMenuFlag], flag);
  }
  EXPECT_EQ(user.alerts().size(), 1u);
  EXPECT_TRUE(flagInAlert);
}

TEST_F(CopyLinkAction, AnOpenWindowClosesFirstEvenWhenTheActionFails) {
  select(nil);
  @autoreleasepool {
    ASSERT_NE(openSend(), nil);
    countEndsOf([SendAndCopyTabController class]);
    copyLink();
  }
  EXPECT_EQ(ended([SendAndCopyTabController class]), 1);
  expectSilence(
      {kActivated, "recieve Notification close send/copy window.", "window closed", kOutsideLine});
  EXPECT_TRUE([delegate contextMenuFlag]);
}

TEST_F(CopyLinkAction, AnOpenShareWindowHasClosedBeforeTheAlertShows) {
  engine.files.clear();
  ASSERT_NE(openShare(), nil);
  copyLink();
  expectAlert(
      kUnable, "",
      {kActivated, "recieve Notification - close share folder window", "window closed", kNoIdLine});
  EXPECT_TRUE(flagInAlert);
}
