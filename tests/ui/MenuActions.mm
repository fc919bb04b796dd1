#import "tests/ui/MenuActions.h"

#include <unistd.h>

#include <algorithm>
#include <thread>

#include "tests/support/ProcessActivity.h"

const char *const kOutsideLine = "filepath cannot be matched";
const char *const kNoIdLine = "error getting fileId";

namespace {

NSString *nsString(const std::string &text) {
  return [NSString stringWithUTF8String:text.c_str()];
}

void makeFolderAt(NSString *path) {
  [[NSFileManager defaultManager] createDirectoryAtPath:path
                            withIntermediateDirectories:YES
                                             attributes:nil
                                                  error:nullptr];
}

NSString *makeFileAt(NSString *path) {
  makeFolderAt([path stringByDeletingLastPathComponent]);
  [[NSFileManager defaultManager] createFileAtPath:path contents:[NSData data] attributes:nil];
  return path;
}

/// Before the first test of the process: one, and that of a sanitizer, which comes with the first
/// thread.
const std::size_t threadsAtRest = [] {
  std::thread([] {}).join();
  return threadsOf(getpid());
}();

}  // namespace

MenuActionsWithoutAgent::MenuActionsWithoutAgent()
    : syncedFolder(nsString(newTemporaryFolder() + "/Users/ada/Brisvale")), user([this] {
        clipboardInAlert = [clipboardText() copy];
        flagInAlert = [delegate contextMenuFlag];
        isHiddenInAlert = [NSApp isHidden] != NO;
      }) {
  engine = ScriptedEngine();
  makeFolderAt(syncedFolder);
  [delegate setSyncedFilePath:syncedFolder];
  [delegate setHomeFolderInfo:@{@"homefolder" : @"home-1"}];
}

NSString *MenuActionsWithoutAgent::makeFile(NSString *relativePath) const {
  return makeFileAt([syncedFolder stringByAppendingPathComponent:relativePath]);
}

NSString *MenuActionsWithoutAgent::makeFolder(NSString *relativePath) const {
  NSString *const path = [syncedFolder stringByAppendingPathComponent:relativePath];
  makeFolderAt(path);
  return path;
}

NSString *MenuActionsWithoutAgent::makeFileOutside() const {
  return makeFileAt(nsString(newTemporaryFolder() + "/notes.txt"));
}

void MenuActionsWithoutAgent::select(NSString *first, NSString *second) const {
  fileManager.select([NSArray arrayWithObjects:first, second, nil]);
}

void MenuActionsWithoutAgent::knowFile(NSString *path, const char *itemId) const {
  engine.files[text(path)] = itemId;
}

void MenuActionsWithoutAgent::knowFolder(NSString *path, const char *itemId) const {
  engine.folders[text(path)] = itemId;
}

void MenuActionsWithoutAgent::expectAlert(const std::string &message,
                                          const std::string &informative, const Lines &lines) {
  EXPECT_EQ(log.lines(), lines);
  ASSERT_EQ(user.alerts().size(), 1u);
  Lines shown = user.alerts()[0].texts;
  std::erase(shown, "");
  EXPECT_EQ(shown, informative.empty() ? Lines{message} : (Lines{message, informative}));
  EXPECT_TRUE([NSApp isHidden]);
  EXPECT_TRUE(visibleWindows().empty());
}

void MenuActionsWithoutAgent::expectSilence(const Lines &lines) const {
  EXPECT_EQ(log.lines(), lines);
  EXPECT_TRUE(user.alerts().empty());
  EXPECT_TRUE([NSApp isHidden]);
  EXPECT_TRUE(visibleWindows().empty());
}

NSWindow *MenuActionsWithoutAgent::onlyWindow() {
  handlePostedEvents();
  const auto windows = visibleWindows();
  return windows.size() == 1 ? windows.front() : nil;
}

SendAndCopyTabController *MenuActionsWithoutAgent::sendWindow() {
  id const controller = [onlyWindow() windowController];
  return [controller isKindOfClass:[SendAndCopyTabController class]] ? controller : nil;
}

BrisvaleTabController *MenuActionsWithoutAgent::shareWindow() {
  id const controller = [onlyWindow() windowController];
  return [controller isKindOfClass:[BrisvaleTabController class]] ? controller : nil;
}

void MenuActionsWithoutAgent::expectItem(SendAndCopyTabController *controller,
                                         const std::string &itemId, bool isFolder) {
  EXPECT_EQ(text([[controller sendFile] filePath]), itemId);
  EXPECT_TRUE([[controller sendFile] isFileId]);
  EXPECT_EQ([[controller sendFile] isFolder] != NO, isFolder);
  EXPECT_EQ(text([[controller sendCopyFile] filePath]), itemId);
  EXPECT_TRUE([[controller sendCopyFile] isFileId]);
  EXPECT_EQ([[controller sendCopyFile] isFolder] != NO, isFolder);
}

MenuActions::~MenuActions() {
  // While there is an agent.
  closeWindows();
  // A load of a closed window continues, and would ask the next test's agent, which has the same
  // name.
  EXPECT_TRUE(handleEventsUntil([] { return threadsOf(getpid()) == threadsAtRest; }));
}
