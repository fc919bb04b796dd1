#include <unistd.h>

#include <atomic>
#include <fstream>

#import "platform/gnustep/runtime/DeallocHook.h"
#import "tests/support/Arguments.h"
#include "tests/support/MacRules.h"
#include "tests/support/Thorough.h"
#include "tests/ui/PermissionsTab.h"
#import "text/LocalizedText.h"
#import "windows/share/PersonItem.h"

namespace {

#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
// A sanitizer keeps freed memory for a while, and checks for leaks by itself; opening a window
// takes it more than a second.
constexpr int kOpenings = 40;
constexpr double kMostGrowthKibibytes = 1e9;
#else
const int kOpenings = keepMacRules() ? 6 : repetitions(45, 200);
const double kMostGrowthKibibytes = keepMacRules() ? 1e9 : 1024;
#endif
/// By then everything that is created once exists.
const int kFirstOpenings = keepMacRules() ? 1 : repetitions(15, 40);

// Atomic, because a load that outlives its window ends on its own thread.
std::atomic<int> endedControllers = 0;
std::atomic<int> endedItems = 0;
std::atomic<int> endedRows = 0;

/// One controller whose deallocation a test waits for: those of earlier tests may still be
/// deallocated meanwhile.
std::atomic<const void *> watched = nullptr;
std::atomic<bool> hasWatchedEnded = false;

void noteEndOfController(id controller) {
  ++endedControllers;
  if (controller == watched) hasWatchedEnded = true;
}

double residentKibibytes() {
  long total = 0;
  long resident = 0;
  std::ifstream("/proc/self/statm") >> total >> resident;
  return static_cast<double>(resident * sysconf(_SC_PAGESIZE)) / 1024;
}

struct PermissionsTabLifetimes : PermissionsTab {
  PermissionsTabLifetimes() {
    addDeallocHook([PermissionTabController class], noteEndOfController);
    addDeallocHook([PersonItem class], [](id) { ++endedItems; });
    addDeallocHook([SharedWith class], [](id) { ++endedRows; });
  }

  /// A window that is closed while its list is fetched, which goes on until resumeAgent.
  void closeWhileItsListIsFetched() {
    agent.setScript(@{@"getAccess::" : held(people(5))});
    openWindow();
    event([&] {
      [tab setFilePath:@"folder-1"];
      EXPECT_TRUE(handleEventsUntil([&] { return calls(@"getAccess::") == 1; }));
    });
    closedTab = tab;
    close();
  }

  /// The tab of that window, which lives until its load ends.
  PermissionTabController *closedTab = nil;

  /// One event of the test's user, with a pool of its own as each event has.
  template <class Step>
  void event(Step step) const {
    @autoreleasepool {
      step();
    }
  }
};

}  // namespace

TEST_F(PermissionsTabLifetimes, AClosedWindowLeavesNothingBehind) {
  answerList(people(5));
  const int controllers = endedControllers;
  const int rows = endedRows;
  const int items = endedItems;
  openWindow();
  event([&] {
    [tab setFilePath:@"folder-1"];
    waitUntilLoaded();
    rowView(0);
  });
  close();
  EXPECT_TRUE(handleEventsUntil([&] { return endedControllers == controllers + 1; }));
  EXPECT_EQ(endedRows, rows + 5);
  // The five, and the prototype.
  EXPECT_EQ(endedItems, items + 6);
}

TEST_F(PermissionsTabLifetimes, AWindowClosedWhileItsListIsFetchedLeavesNothingBehind) {
  const int controllers = endedControllers;
  closeWhileItsListIsFetched();
  resumeAgent();
  EXPECT_TRUE(handleEventsUntil([&] { return endedControllers == controllers + 1; }));
}

TEST_F(PermissionsTabLifetimes, AnotherWindowOpenedWhileAListIsFetchedShowsItsOwn) {
  agent.setScript(@{@"getAccess::" : @[ held(people(7)), @{@"reply" : success(people(2))} ]});
  const int controllers = endedControllers;
  openWindow();
  event([&] {
    [tab setFilePath:@"folder-1"];
    EXPECT_TRUE(handleEventsUntil([&] { return calls(@"getAccess::") == 1; }));
  });
  close();
  openWindow();
  event([&] {
    [tab setFilePath:@"folder-2"];
    resumeAgent();
    EXPECT_TRUE(handleEventsUntil([&] { return showsList(); }));
  });
  EXPECT_TRUE(handleEventsUntil([&] { return endedControllers == controllers + 1; }));
  EXPECT_EQ([[tab personList] count], 2u);
}

TEST_F(PermissionsTabLifetimes, ManyWindowsClosedWhileLoadingLeaveMemoryFlat) {
  agent.setScript(@{@"getAccess::" : @{@"reply" : success(people(12))}});
  const int controllers = endedControllers;
  double before = 0;
  for (int i = 0; i < kOpenings; ++i) {
    if (i == kFirstOpenings) before = residentKibibytes();
    openWindow();
    event([&] {
      [tab setFilePath:@"folder-1"];
      // Now before the agent is asked, now after, now with the rows on the screen.
      if (i % 3 == 1) handleEventsUntil([&] { return ![spinner() isHidden] || showsList(); });
      if (i % 3 == 2) handleEventsUntil([&] { return showsList(); });
      if (i % 3 == 2) [[window window] display];
    });
    close();
  }
  EXPECT_TRUE(handleEventsUntil([&] { return endedControllers >= controllers + kOpenings; }));
  EXPECT_LT(residentKibibytes() - before, kMostGrowthKibibytes);
}

TEST_F(PermissionsTabLifetimes, AnInvitationWhileALoadOutlivesItsWindowReachesNobody) {
  const int controllers = endedControllers;
  closeWhileItsListIsFetched();
  ASSERT_EQ(endedControllers, controllers);
  event([] {
    [[NSNotificationCenter defaultCenter] postNotificationName:@"UserAddedToShareFolder"
                                                        object:nil];
  });
  // The agent hangs, so that it does not record the calls of another load.
  EXPECT_EQ([[closedTab valueForKey:@"newestLoad"] unsignedIntegerValue], 1u);
  resumeAgent();
  EXPECT_TRUE(handleEventsUntil([&] { return endedControllers == controllers + 1; }));
  EXPECT_EQ(calls(@"getAccess::"), 1);
}

TEST_F(PermissionsTabLifetimes, ANotificationAfterTheEndReachesNobody) {
  openWindow();
  event([&] {
    [tab setFilePath:@"the ended one's"];
    EXPECT_TRUE(waitUntilLoaded());
  });
  watched = tab;
  hasWatchedEnded = false;
  close();
  ASSERT_TRUE(handleEventsUntil([] { return hasWatchedEnded.load(); }));
  [[NSNotificationCenter defaultCenter] postNotificationName:@"UserAddedToShareFolder" object:nil];
  NSUInteger questions = 0;
  for (NSDictionary *call in agent.calls()) {
    id const folder = [[call objectForKey:@"arguments"] objectAtIndex:access_operation::kPathOrId];
    if ([folder isEqual:@"the ended one's"]) ++questions;
  }
  EXPECT_EQ(questions, 1u);
}

/// The platform's observing keeps the last value but one.
TEST_F(PermissionsTabLifetimes, OfFormerListsAtMostTheLastOneStays) {
  answerList(people(4));
  openWindow();
  event([&] {
    [tab setFilePath:@"folder-1"];
    waitUntilLoaded();
    rowView(0);
  });
  const int rows = endedRows;
  for (int i = 1; i <= 3; ++i) {
    event([&] {
      [tab listenNotification:nil];
      rowView(0);
    });
    EXPECT_GE(endedRows, rows + 4 * (i - 1));
  }
}

TEST_F(PermissionsTabLifetimes, AListLivesOnInATabWithoutAnInterface) {
  answerList(people(3));
  PermissionTabController *const bare = [[PermissionTabController alloc] init];
  event([&] { [bare refershManagePermissionsView]; });
  EXPECT_EQ([[bare personList] count], 3u);
  event([&] { [bare refershManagePermissionsView]; });
  EXPECT_EQ([[bare personList] count], 3u);
  [bare disconnectFromWindow];
  [bare release];
}
