#include <csignal>
#include <filesystem>
#include <fstream>

#import "tests/e2e/CopyLinkTabOnScreen.h"

namespace {

/// What the user does in the tab before the link is copied, and what the agent is asked with:
/// notify, ask for an address, downloads.
struct Choice {
  const char *name;
  void (*make)(const CopyLinkTab &);
  int notify;
  int askForMail;
  const char *downloads;
};

struct CopyLinkOptions : CopyLinkTab, testing::WithParamInterface<Choice> {};

/// The pop-up has the focus first, then both check boxes.
void nothing(const CopyLinkTab &) {}
void notifyByKeys(const CopyLinkTab &) {
  pressKeys({"Tab", "space"});
}
void askByKeys(const CopyLinkTab &) {
  pressKeys({"Tab", "Tab", "space"});
}
void bothByKeys(const CopyLinkTab &) {
  pressKeys({"Tab", "space", "Tab", "space"});
}
void notifyOnAndOffByKeys(const CopyLinkTab &) {
  pressKeys({"Tab", "space", "space"});
}
void downloadsByKeys(const CopyLinkTab &) {
  pressKeys({"space"});
  waitForWindows(2);  // the menu is one
  pressKeys({"Down", "Down", "space"});
  waitForWindows(1);
}
void downloadsByKeysAndReturn(const CopyLinkTab &) {
  pressKeys({"space"});
  waitForWindows(2);
  pressKeys({"Down", "Down", "Down", "Return"});
  waitForWindows(1);
}
void escapeFromDownloads(const CopyLinkTab &) {
  pressKeys({"space"});
  waitForWindows(2);
  pressKeys({"Down", "Escape"});
  waitForWindows(1);
}
void notifyByClick(const CopyLinkTab &tab) {
  tab.toggle(kNotify);
}
void askByClick(const CopyLinkTab &tab) {
  tab.toggle(kAskForMail);
}
void downloadsByMouse(const CopyLinkTab &tab) {
  tab.chooseDownloads(1);
}
void everythingByMouse(const CopyLinkTab &tab) {
  tab.chooseDownloads(6);
  tab.toggle(kNotify);
  tab.toggle(kAskForMail);
}

}  // namespace

TEST_P(CopyLinkOptions, ReachTheAgent) {
  agent->answer(kFileLink, success(@"https://x/y"));
  ASSERT_TRUE(openTab());
  GetParam().make(*this);
  click(kCopy);
  ASSERT_TRUE(waitFor([&] { return callsOf(kFileLink) == 1; }));
  NSArray *const wanted = @[
    @"id-1", [NSNumber numberWithInt:GetParam().notify],
    [NSNumber numberWithInt:GetParam().askForMail],
    [NSString stringWithUTF8String:GetParam().downloads], @1
  ];
  EXPECT_TRUE([argumentsOf(kFileLink) isEqual:wanted]) << text(argumentsOf(kFileLink));
}

INSTANTIATE_TEST_SUITE_P(
    Chosen, CopyLinkOptions,
    testing::Values(Choice{"Nothing", nothing, 0, 0, "-1"},
                    Choice{"NotifyByKeys", notifyByKeys, 1, 0, "-1"},
                    Choice{"AskByKeys", askByKeys, 0, 1, "-1"},
                    Choice{"BothByKeys", bothByKeys, 1, 1, "-1"},
                    Choice{"NotifyOnAndOffByKeys", notifyOnAndOffByKeys, 0, 0, "-1"},
                    Choice{"DownloadsByKeys", downloadsByKeys, 0, 0, "5"},
                    Choice{"DownloadsByKeysAndReturn", downloadsByKeysAndReturn, 0, 0, "10"},
                    Choice{"EscapeFromDownloads", escapeFromDownloads, 0, 0, "-1"},
                    Choice{"NotifyByClick", notifyByClick, 1, 0, "-1"},
                    Choice{"AskByClick", askByClick, 0, 1, "-1"},
                    Choice{"DownloadsByMouse", downloadsByMouse, 0, 0, "1"},
                    Choice{"EverythingByMouse", everythingByMouse, 1, 1, "100"}),
    [](const auto &info) { return info.param.name; });

namespace {

/// Events of a busy application arrive all at once.
struct CopyLinkClicksWhileBusy : CopyLinkTab {
  template <class Action>
  void whileItIsBusy(Action action) const {
    application.process().signal(SIGSTOP);
    action();
    application.process().signal(SIGCONT);
  }
};

}  // namespace

TEST_F(CopyLinkClicksWhileBusy, TheFirstOfAllOnAButtonIsHeard) {
  agent->answer(kFileLink, success(@"https://x/y"));
  ASSERT_TRUE(openTab());
  whileItIsBusy([&] { click(kCopy); });
  EXPECT_TRUE(waitFor([&] { return callsOf(kFileLink) == 1; }));
}

TEST_F(CopyLinkClicksWhileBusy, TheFirstOfAllOnABoxAndTheNextOnesAreHeard) {
  agent->answer(kFileLink, success(@"https://x/y"));
  ASSERT_TRUE(openTab());
  whileItIsBusy([&] {
    click(kNotify);
    click(kAskForMail);
    click(kCopy);
  });
  ASSERT_TRUE(waitFor([&] { return callsOf(kFileLink) == 1; }));
  NSArray *const wanted = @[ @"id-1", @1, @1, @"-1", @1 ];
  EXPECT_TRUE([argumentsOf(kFileLink) isEqual:wanted]) << text(argumentsOf(kFileLink));
}

namespace {

/// Copies the link of an item with Return and nothing else.
struct CopyLinkItem : CopyLinkTab {
  bool copy(const SendCall &call, NSString *operation) {
    agent->setScript(@{
      kFileLink : @{@"reply" : success(@"https://x/file")},
      kFolderLink : @{@"reply" : success(@"https://x/folder")}
    });
    if (!openTab(call)) return false;
    pressKeys({"Return"});
    return waitFor([&] { return callsOf(operation) == 1; });
  }
};

NSArray *argumentsFor(const std::string &item, NSNumber *isFileId) {
  return @[ [NSString stringWithUTF8String:item.c_str()], @0, @0, @"-1", isFileId ];
}

}  // namespace

TEST_F(CopyLinkItem, AFileNamedByItsIdIsAskedForAsAFile) {
  ASSERT_TRUE(copy({.item = "id-file"}, kFileLink));
  EXPECT_TRUE([argumentsOf(kFileLink) isEqual:argumentsFor("id-file", @1)]);
  EXPECT_EQ(callsOf(kFolderLink), 0u);
}

TEST_F(CopyLinkItem, AFolderNamedByItsIdIsAskedForAsAFolder) {
  ASSERT_TRUE(copy({.item = "id-folder", .isFolder = 1}, kFolderLink));
  EXPECT_TRUE([argumentsOf(kFolderLink) isEqual:argumentsFor("id-folder", @1)]);
  EXPECT_EQ(callsOf(kFileLink), 0u);
}

TEST_F(CopyLinkItem, AFileNamedByItsPathIsAskedForAsAFile) {
  const std::string path = newTemporaryFolder() + "/Übersicht 漢字.txt";
  std::ofstream(path) << "text";
  ASSERT_TRUE(copy({.item = path, .isFileId = 0}, kFileLink));
  EXPECT_TRUE([argumentsOf(kFileLink) isEqual:argumentsFor(path, @0)]);
}

TEST_F(CopyLinkItem, AFolderNamedByItsPathIsAskedForAsAFolderWhateverTheClientSays) {
  const std::string path = newTemporaryFolder();
  ASSERT_TRUE(copy({.item = path, .isFolder = 0, .isFileId = 0}, kFolderLink));
  EXPECT_TRUE([argumentsOf(kFolderLink) isEqual:argumentsFor(path, @0)]);
}
