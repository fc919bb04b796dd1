#import "tests/ui/MenuActions.h"

namespace {

const std::string kMessage = "Veldane Brisvale";
const std::string kNotYet =
    "This item is not on Brisvale yet. Wait until it has finished syncing, then try again.";
const std::string kFolderEnd = "Send Folder action..";

NSString *labelOf(SendAndCopyTabController *controller) {
  return [[[controller sendAndCopyTab] selectedTabViewItem] label];
}

NSInteger selectedTab(SendAndCopyTabController *controller) {
  NSTabView *const tabs = [controller sendAndCopyTab];
  return [tabs indexOfTabViewItem:[tabs selectedTabViewItem]];
}

NSString *subjectOf(SendAndCopyTabController *controller) {
  return [[[controller sendFile] mailSubject] stringValue];
}

struct SendFileAction : MenuActions {
  NSString *const file = makeFile(@"MyDocs/figures.csv");

  SendFileAction() {
    select(file);
    knowFile(file, "id-file");
  }

  void sendFile() const { [delegate SendFile:nil]; }
};

struct SendFolderAction : MenuActions {
  NSString *const folder = makeFolder(@"Shared/Plans");

  SendFolderAction() {
    select(folder);
    knowFolder(folder, "id-folder");
  }

  void sendFolder() const { [delegate SendFolder:nil]; }
};

}  // namespace

TEST_F(SendFileAction, OpensTheSendWindowForTheFile) {
  [delegate hideMe];
  sendFile();
  SendAndCopyTabController *const controller = sendWindow();
  ASSERT_NE(controller, nil);
  EXPECT_EQ(text([[controller window] title]), "figures.csv");
  EXPECT_EQ(selectedTab(controller), 0);
  EXPECT_EQ(text(labelOf(controller)), "Send File");
  EXPECT_EQ(text(subjectOf(controller)), "A file for you");
  expectItem(controller, "id-file", false);
  EXPECT_EQ(log.lines(), withActivations({}));
}

TEST_F(SendFileAction, TheApplicationIsVisibleAndTheFlagCleared) {
  [delegate hideMe];
  sendFile();
  EXPECT_FALSE([delegate contextMenuFlag]);
  EXPECT_FALSE([NSApp isHidden]);
  EXPECT_TRUE(handleEventsUntil([] { return [onlyWindow() isKeyWindow]; }));
}

TEST_F(SendFileAction, AsksTheAgentForNothing) {
  sendFile();
  EXPECT_EQ([agent.operations() count], 0u);
}

TEST_F(SendFileAction, ClosingTheWindowSetsTheFlagAndHidesTheApplication) {
  sendFile();
  [onlyWindow() performClose:nil];
  EXPECT_EQ(log.lines(), withActivations({"window closed"}));
  EXPECT_TRUE([delegate contextMenuFlag]);
  EXPECT_TRUE([NSApp isHidden]);
}

TEST_F(SendFileAction, OfSeveralSelectedItemsTheFirstIsSent) {
  NSString *const other = makeFile(@"MyDocs/other.csv");
  knowFile(other, "id-other");
  select(file, other);
  sendFile();
  EXPECT_EQ(text([onlyWindow() title]), "figures.csv");
  expectItem(sendWindow(), "id-file", false);
  EXPECT_EQ(engine.calls,
            (Lines{"BvInitialize", "BvGetFileIdByName " + text(file), "BvUninitialize"}));
}

TEST_F(SendFileAction, TwiceLeavesOneWindow) {
  sendFile();
  countEndsOf([SendAndCopyTabController class]);
  sendFile();
  EXPECT_NE(sendWindow(), nil);
  EXPECT_EQ(ended([SendAndCopyTabController class]), 1);
  EXPECT_FALSE([delegate contextMenuFlag]);
}

TEST_F(SendFileAction, ASelectedFolderIsLookedUpAsAFileWithItsSlash) {
  NSString *const folder = makeFolder(@"Plans");
  select(folder);
  knowFolder(folder, "id-folder");
  sendFile();
  EXPECT_EQ(engine.calls,
            (Lines{"BvInitialize", "BvGetFileIdByName " + text(folder) + "/", "BvUninitialize"}));
  expectAlert(kMessage, kNotYet, {kNoIdLine});
}

TEST_F(SendFileAction, AnItemWithoutAnIdIsToldAndEndsHidden) {
  engine.files.clear();
  sendFile();
  expectAlert(kMessage, kNotYet, {kNoIdLine});
  EXPECT_TRUE(flagInAlert);
  EXPECT_TRUE([delegate contextMenuFlag]);
}

TEST_F(SendFileAction, AFailureNeverChangesTheFlag) {
  engine.files.clear();
  [delegate setContextMenuFlag:NO];
  sendFile();
  EXPECT_FALSE([delegate contextMenuFlag]);
}

TEST_F(SendFileAction, NothingSelectedEndsSilently) {
  select(nil);
  sendFile();
  expectSilence({kOutsideLine});
}

TEST_F(SendFileAction, AnAbsentSelectionIsTheEmptyOne) {
  fileManager.setScript(@{@"raise" : @"SomeException"});
  sendFile();
  expectSilence({kOutsideLine});
}

TEST_F(SendFileAction, AnItemOutsideTheSyncedFolderEndsSilently) {
  select(makeFileOutside());
  sendFile();
  expectSilence({kOutsideLine});
}

TEST_F(SendFileAction, AnOpenWindowClosesFirstEvenWhenTheActionFails) {
  engine.files.clear();
  ASSERT_NE(openSend(1), nil);
  sendFile();
  expectAlert(kMessage, kNotYet,
              {"recieve Notification close send/copy window.", "window closed", kNoIdLine});
}

TEST_F(SendFileAction, ThePathReachesTheLibraryByteForByte) {
  for (const std::string name : {"Caf\xC3\xA9.txt", "Cafe\xCC\x81.txt", "\xED\x95\x9C",
                                 "\xE1\x84\x92\xE1\x85\xA1\xE1\x86\xAB", " 100%25\t"}) {
    select(makeFile([NSString stringWithUTF8String:name.c_str()]));
    engine.calls.clear();
    sendFile();
    EXPECT_EQ(engine.calls,
              (Lines{"BvInitialize", "BvGetFileIdByName " + text(syncedFolder) + "/" + name,
                     "BvUninitialize"}));
  }
}

TEST_F(SendFileAction, ANameInAnyScriptIsTheTitle) {
  for (NSString *name in @[ @"漢字 😀.txt", @"مجلد", @"%@%n%s", @"no extension" ]) {
    NSString *const odd = makeFile(name);
    select(odd);
    knowFile(odd, "id-odd");
    sendFile();
    EXPECT_EQ(text([onlyWindow() title]), text(name));
  }
}

TEST_F(SendFileAction, ANameOfBlanksIsATitleWithoutOneAndNotTheWindowsOwn) {
  NSString *const blank = makeFile(@"MyDocs/  ");
  select(blank);
  knowFile(blank, "id-blank");
  sendFile();
  EXPECT_EQ(text([onlyWindow() title]), "");
}

TEST_F(SendFolderAction, OpensTheSendWindowForTheFolder) {
  [delegate hideMe];
  sendFolder();
  SendAndCopyTabController *const controller = sendWindow();
  ASSERT_NE(controller, nil);
  EXPECT_EQ(text([[controller window] title]), "Plans");
  EXPECT_EQ(selectedTab(controller), 0);
  EXPECT_EQ(text(labelOf(controller)), "Send Folder");
  EXPECT_EQ(text(subjectOf(controller)), "A folder for you");
  expectItem(controller, "id-folder", true);
  EXPECT_EQ(log.lines(), withActivations({kFolderEnd}));
  EXPECT_FALSE([delegate contextMenuFlag]);
  EXPECT_FALSE([NSApp isHidden]);
  EXPECT_EQ([agent.operations() count], 0u);
}

TEST_F(SendFolderAction, OfSeveralSelectedItemsTheFirstIsSent) {
  NSString *const other = makeFolder(@"Shared/Other");
  knowFolder(other, "id-other");
  select(folder, other);
  sendFolder();
  EXPECT_EQ(text([onlyWindow() title]), "Plans");
  expectItem(sendWindow(), "id-folder", true);
}

TEST_F(SendFolderAction, LooksTheFolderUpWithoutItsSlash) {
  sendFolder();
  EXPECT_EQ(engine.calls,
            (Lines{"BvInitialize", "BvGetFolderIdByName " + text(folder), "BvUninitialize"}));
}

TEST_F(SendFolderAction, ThePathReachesTheLibraryByteForByteWithoutItsSlash) {
  for (const std::string name : {"Caf\xC3\xA9", "Cafe\xCC\x81", "\xED\x95\x9C",
                                 "\xE1\x84\x92\xE1\x85\xA1\xE1\x86\xAB", " 100%25\t"}) {
    select(makeFolder([NSString stringWithUTF8String:name.c_str()]));
    engine.calls.clear();
    sendFolder();
    EXPECT_EQ(engine.calls,
              (Lines{"BvInitialize", "BvGetFolderIdByName " + text(syncedFolder) + "/" + name,
                     "BvUninitialize"}));
  }
}

TEST_F(SendFolderAction, ASelectedFileLosesItsLastCharacterAndIsLookedUpAsAFolder) {
  NSString *const file = makeFile(@"figures.csv");
  select(file);
  knowFile(file, "id-file");
  sendFolder();
  EXPECT_EQ(engine.calls[1],
            "BvGetFolderIdByName " + text([syncedFolder stringByAppendingString:@"/figures.cs"]));
  expectAlert(kMessage, kNotYet, {kNoIdLine, kFolderEnd});
}

TEST_F(SendFolderAction, TheFolderMyDocsHasTheHomeFoldersIdAndIsTitledMyDocs) {
  select(makeFolder(@"MyDocs"));
  sendFolder();
  EXPECT_EQ(text([onlyWindow() title]), "MyDocs");
  expectItem(sendWindow(), "home-1", true);
}

TEST_F(SendFolderAction, AFolderWithTheHomeFoldersIdIsTitledMyDocsWhateverItsName) {
  knowFolder(folder, "home-1");
  sendFolder();
  EXPECT_EQ(text([onlyWindow() title]), "MyDocs");
}

TEST_F(SendFolderAction, MyDocsHasNoIdWithTheAgentUnreachableSinceLaunch) {
  [delegate setHomeFolderInfo:@{}];
  select(makeFolder(@"MyDocs"));
  sendFolder();
  expectAlert(kMessage, kNotYet, {kNoIdLine, kFolderEnd});
}

TEST_F(SendFolderAction, AFolderIsOpenedWithTheAgentUnreachableSinceLaunch) {
  [delegate setHomeFolderInfo:@{}];
  sendFolder();
  EXPECT_EQ(text([onlyWindow() title]), "Plans");
}

TEST_F(SendFolderAction, AFolderWithoutAnIdIsToldAndEndsHidden) {
  engine.folders.clear();
  sendFolder();
  expectAlert(kMessage, kNotYet, {kNoIdLine, kFolderEnd});
  EXPECT_TRUE([delegate contextMenuFlag]);
}

TEST_F(SendFolderAction, NothingSelectedEndsSilently) {
  select(nil);
  sendFolder();
  expectSilence({kOutsideLine, kFolderEnd});
}

TEST_F(SendFolderAction, AnAbsentSelectionIsTheEmptyOne) {
  fileManager.setScript(@{@"nil" : @1});
  sendFolder();
  expectSilence({kOutsideLine, kFolderEnd});
}

TEST_F(SendFolderAction, AFolderOutsideTheSyncedFolderEndsSilently) {
  select(@"/usr");
  sendFolder();
  expectSilence({kOutsideLine, kFolderEnd});
}

TEST_F(SendFolderAction, AnOpenWindowClosesFirstEvenWhenTheActionFails) {
  select(nil);
  ASSERT_NE(openShare(), nil);
  sendFolder();
  expectSilence({"recieve Notification - close share folder window", "window closed", kOutsideLine,
                 kFolderEnd});
}
