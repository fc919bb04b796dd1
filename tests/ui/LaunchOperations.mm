#import "tests/ui/WindowFixtures.h"

namespace {

struct LaunchOperations : Windows {};

NSString *repeated(NSString *part, NSUInteger times) {
  return [@"" stringByPaddingToLength:[part length] * times withString:part startingAtIndex:0];
}

}  // namespace

TEST_F(LaunchOperations, TheHomeFoldersWindowIsTitledMyDocsWhateverTheNameSays) {
  SendAndCopyTabController *const controller =
      openSend(0, {.name = @"another name", .isMyDocs = YES, .isFolder = YES});
  EXPECT_EQ(text([[controller window] title]), "MyDocs");
}

TEST_F(LaunchOperations, AnyOtherWindowIsTitledWithTheNameOfTheItem) {
  for (NSString *name in @[ @"Quarterly figures.csv", @"漢字 😀.txt", @"مجلد", @"%@%n%s" ]) {
    EXPECT_EQ(text([[openSend(0, {.name = name}) window] title]), text(name));
  }
}

TEST_F(LaunchOperations, AnEmptyOrMissingNameLeavesTheTitleOfTheWindow) {
  for (NSString *name in @[ @"", @"  ", @"\n\n" ]) {
    EXPECT_EQ(text([[openSend(0, {.name = name}) window] title]), "Send or Copy Link");
  }
  EXPECT_EQ(text([[openSend(0, {.name = nil}) window] title]), "Send or Copy Link");
}

TEST_F(LaunchOperations, ANameOfSeveralLinesBecomesATitleOfOne) {
  EXPECT_EQ(text([[openSend(0, {.name = @"two\nlines\r\nand\tmore"}) window] title]),
            "two lines  and more");
}

TEST_F(LaunchOperations, AVeryLongNameBecomesATitleThatFits) {
  NSString *const title = [[openSend(0, {.name = repeated(@"long ", 2000)}) window] title];
  EXPECT_LE([title length], 256u);
  EXPECT_TRUE([title hasPrefix:@"long long"]);
}

TEST_F(LaunchOperations, AFileGetsTheSubjectOfFilesAndTheLabelOfTheLoadedWindow) {
  SendAndCopyTabController *const controller = openSend(0);
  EXPECT_EQ(text([[[controller sendFile] mailSubject] stringValue]), "A file for you");
  EXPECT_EQ(text([[[controller sendAndCopyTab] tabViewItemAtIndex:0] label]), "Send File");
}

TEST_F(LaunchOperations, AFolderGetsTheSubjectAndTheLabelOfFolders) {
  SendAndCopyTabController *const controller = openSend(0, {.isFolder = YES});
  EXPECT_EQ(text([[[controller sendFile] mailSubject] stringValue]), "A folder for you");
  EXPECT_EQ(text([[[controller sendAndCopyTab] tabViewItemAtIndex:0] label]), "Send Folder");
}

TEST_F(LaunchOperations, BothTabsGetTheItemItsKindAndTheKindOfItsReference) {
  for (const BOOL flag : {NO, YES}) {
    SendAndCopyTabController *const controller =
        openSend(0, {.item = @"/some/path", .isFolder = flag, .isFileId = flag});
    EXPECT_EQ(text([[controller sendFile] filePath]), "/some/path");
    EXPECT_EQ([[controller sendFile] isFolder] != NO, flag != NO);
    EXPECT_EQ([[controller sendFile] isFileId] != NO, flag != NO);
    EXPECT_EQ(text([[controller sendCopyFile] filePath]), "/some/path");
    EXPECT_EQ([[controller sendCopyFile] isFolder] != NO, flag != NO);
    EXPECT_EQ([[controller sendCopyFile] isFileId] != NO, flag != NO);
  }
}

TEST_F(LaunchOperations, TheShareWindowIgnoresTheNameAndTheThirdArgument) {
  for (const BOOL unused : {NO, YES}) {
    // clang-format off
    [proxy LaunchShareFolderTab:@"id-2":@"a name":unused:NO:YES];
    // clang-format on
    ASSERT_EQ(visibleWindows().size(), 1u);
    EXPECT_EQ(text([visibleWindows().front() title]), "Share Folder");
  }
}

TEST_F(LaunchOperations, TheFlagIsClearedTheWindowIsInFrontAndTheApplicationActive) {
  NSWindow *const window = [openSend() window];
  EXPECT_FALSE([delegate contextMenuFlag]);
  EXPECT_TRUE(handleEventsUntil([&] { return [NSApp isActive] && [window isKeyWindow]; }));
  EXPECT_FALSE([NSApp isHidden]);
}

TEST_F(LaunchOperations, TheAddressBookIsFetchedWhileThereIsNone) {
  agent.setScript(@{@"getEmployeeAddressBook" : @{@"contacts" : @3}});
  openSend();
  EXPECT_EQ([[delegate addressBookForShare] count], 3u);
  openShare();
  NSArray *const fetches = [agent.operations()
      filteredArrayUsingPredicate:[NSPredicate
                                      predicateWithFormat:@"SELF == 'getEmployeeAddressBook'"]];
  EXPECT_EQ([fetches count], 1u);
}

TEST_F(LaunchOperations, TheShareWindowFetchesTheAddressBookToo) {
  agent.setScript(@{@"getEmployeeAddressBook" : @{@"contacts" : @3}});
  openShare();
  EXPECT_EQ([[delegate addressBookForShare] count], 3u);
}

TEST_F(LaunchOperations, OddArgumentsOpenAWindowOnATabThatExists) {
  for (const int tab : {-128, -1, 2, 127}) {
    EXPECT_NE(openSend(tab, {.item = nil, .name = nil}), nil) << tab;
    EXPECT_NE(openSend(tab, {.item = @"", .name = repeated(@"x", 100000)}), nil) << tab;
    EXPECT_NE(openShare(tab, nil), nil) << tab;
  }
}

TEST_F(LaunchOperations, AnArgumentOfAnotherClassCountsAsNone) {
  SendAndCopyTabController *const controller =
      openSend(0, { .item = (NSString *)@[ @"a" ], .name = (NSString *)@12 });
  ASSERT_NE(controller, nil);
  EXPECT_EQ([[controller sendFile] filePath], nil);
  EXPECT_EQ(text([[controller window] title]), "Send or Copy Link");
}
