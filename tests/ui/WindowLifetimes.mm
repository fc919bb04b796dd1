#import "tests/ui/WindowFixtures.h"

#include <algorithm>
#include <climits>
#include <cstdio>

#include <unistd.h>

#include "tests/support/MacRules.h"
#include "tests/support/Thorough.h"

namespace {

/// By then everything that is created once exists.
const int kFirstOpenings = keepMacRules() ? 1 : repetitions(15, 50);
/// Some are enough to count what has been deallocated, which is all that the Mac's rules are about.
const int kOpenings = keepMacRules() ? 5 : repetitions(30, 200);
/// What the platform may keep (caches, fragmentation), far below the memory of so many leaked
/// windows.
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
// A sanitizer keeps freed memory for a while, and checks for leaks by itself.
constexpr long kFlatKilobytes = LONG_MAX / 2;
#else
const long kFlatKilobytes = keepMacRules() ? LONG_MAX / 2 : repetitions(2048, 4096);
#endif

struct WindowLifetimes : Windows {
  static long residentKilobytes() {
    long total = 0;
    long resident = 0;
    FILE *const file = std::fopen("/proc/self/statm", "r");
    if (std::fscanf(file, "%ld %ld", &total, &resident) != 2) resident = -1;
    std::fclose(file);
    return resident * (sysconf(_SC_PAGESIZE) / 1024);
  }

  /// Does it some times to fill the platform's caches, then kOpenings times, and checks the memory,
  /// the windows and the deallocations of `cls`.
  template <class Once>
  void expectFlat(Class cls, Once once) {
    for (int i = 0; i < kFirstOpenings; ++i) {
      @autoreleasepool {
        once();
      }
    }
    closeAll();
    const NSUInteger windows = [[NSApp windows] count];
    const long before = residentKilobytes();
    countEndsOf(cls);
    for (int i = 0; i < kOpenings; ++i) {
      @autoreleasepool {
        once();
      }
    }
    closeAll();
    EXPECT_EQ(ended(cls), kOpenings);
    EXPECT_LE([[NSApp windows] count], windows);
    EXPECT_LE(residentKilobytes() - before, kFlatKilobytes);
  }

  static void closeAll() {
    [[NSNotificationCenter defaultCenter] postNotificationName:@"newInstanceofWindowOpened"
                                                        object:nil];
    handlePostedEvents();
  }
};

}  // namespace

TEST_F(WindowLifetimes, TheSendWindowLeavesNothingBehind) {
  expectFlat([SendAndCopyTabController class], [&] {
    openSend(1);
    closeAll();
  });
}

TEST_F(WindowLifetimes, TheShareWindowLeavesNothingBehind) {
  expectFlat([BrisvaleTabController class], [&] {
    openShare(0);
    closeAll();
  });
}

TEST_F(WindowLifetimes, EachOpenerClosingTheWindowBeforeLeavesNothingBehind) {
  expectFlat([SendAndCopyTabController class], [&] {
    openSend(0);
    openShare(1);
  });
}

TEST_F(WindowLifetimes, AnAlertThatIsUpWhenAnotherWindowOpensLeavesNothingBehind) {
  expectFlat([SendAndCopyTabController class], [&] {
    NSWindow *const window = [openSend(1) window];
    [button(window, @"Copy Link") performClick:nil];
    EXPECT_NE([window attachedSheet], nil);
    closeAll();
  });
}

TEST_F(WindowLifetimes, ASuccessSheetThatIsUpWhenAnotherWindowOpensLeavesNothingBehind) {
  std::vector<std::function<bool()>> haveEnded;
  for (int i = 0; i < kOpenings; ++i) {
    @autoreleasepool {
      SendAndCopyTabController *const controller = openSend(i % 2);
      haveEnded.push_back(endOf([controller sendFile]));
      haveEnded.push_back(endOf([controller sendCopyFile]));
      [[controller sendCopyFile] showSuccessModalWindow:@"linkCopiedSuccessMessageTextKey"];
      [[controller sendFile] showSuccessModalWindow:@"fileSentSuccessMessageTextKey"];
      closeAll();
    }
  }
  // The timers keep the tab controllers, and their panel, until they have fired.
  EXPECT_TRUE(handleEventsUntil([&] {
    return std::all_of(haveEnded.begin(), haveEnded.end(),
                       [](const auto &hasEnded) { return hasEnded(); });
  }));
  EXPECT_EQ(linesInLog("window closed"), kOpenings);
}

TEST_F(WindowLifetimes, ATimerThatFiresAfterItsWindowWasClosedLeavesTheNextOneOpen) {
  std::function<bool()> tabHasEnded;
  @autoreleasepool {
    CopyLinkController *const tab = [openSend(1) sendCopyFile];
    tabHasEnded = endOf(tab);
    [tab showSuccessModalWindow:@"linkCopiedSuccessMessageTextKey"];
  }
  NSWindow *const next = [openSend(1) window];
  EXPECT_TRUE(handleEventsUntil(tabHasEnded));
  EXPECT_TRUE([next isVisible]);
  EXPECT_EQ(linesInLog("window closed"), 1);
}

TEST_F(WindowLifetimes, APermissionsTabThatHasEndedHearsOfNoInvitation) {
  for (int i = 0; i < kOpenings; ++i) {
    @autoreleasepool {
      openShare(0);
      closeAll();
      [[NSNotificationCenter defaultCenter] postNotificationName:@"UserAddedToShareFolder"
                                                          object:nil];
    }
  }
  EXPECT_EQ(linesInLog("window closed"), kOpenings);
}

TEST_F(WindowLifetimes, ASendWindowsControllerThatIsHeldOutlivesTheWindowAndObservesNothing) {
  countEndsOf([SendAndCopyTabController class]);
  SendAndCopyTabController *held = nil;
  @autoreleasepool {
    held = [openSend(0) retain];
    closeAll();
  }
  ASSERT_EQ(ended([SendAndCopyTabController class]), 0);
  closeAll();
  EXPECT_EQ(linesInLog("recieve Notification close send/copy window."), 1);
  EXPECT_EQ(linesInLog("window closed"), 1);
  [held release];
  EXPECT_EQ(ended([SendAndCopyTabController class]), 1);
}

TEST_F(WindowLifetimes, AShareWindowsControllerThatIsHeldOutlivesTheWindowAndObservesNothing) {
  countEndsOf([BrisvaleTabController class]);
  BrisvaleTabController *held = nil;
  @autoreleasepool {
    held = [openShare(1) retain];
    closeAll();
  }
  ASSERT_EQ(ended([BrisvaleTabController class]), 0);
  closeAll();
  EXPECT_EQ(linesInLog("recieve Notification - close share folder window"), 1);
  EXPECT_EQ(linesInLog("window closed"), 1);
  [held release];
  EXPECT_EQ(ended([BrisvaleTabController class]), 1);
}

TEST_F(WindowLifetimes, AClosedWindowDoesNotComeBackWithTheApplication) {
  // Retained, so that it can be checked.
  NSWindow *const window = [[[openSend(0) window] retain] autorelease];
  closeAll();
  ASSERT_TRUE([NSApp isHidden]);
  [NSApp unhideWithoutActivation];
  handlePostedEvents();
  EXPECT_FALSE([window isVisible]);
}

TEST_F(WindowLifetimes, AnAlertOnAClosedWindowDoesNotComeBackWithTheApplication) {
  NSWindow *const window = [openSend(0) window];
  [button(window, @"Send") performClick:nil];
  handlePostedEvents();
  NSWindow *const alert = [[[window attachedSheet] retain] autorelease];
  ASSERT_TRUE([alert isVisible]);
  closeAll();
  [NSApp unhideWithoutActivation];
  handlePostedEvents();
  EXPECT_FALSE([alert isVisible]);
}
