#include <atomic>

#import "platform/gnustep/connections/NSConnection+BackgroundLock.h"
#import "platform/gnustep/runtime/MethodReplacement.h"
#import "tests/faults/EndedThreads.h"
#import "tests/support/Arguments.h"
#include "tests/support/RepeatingTimer.h"
#include "tests/ui/PermissionsTab.h"
#import "text/LocalizedText.h"

namespace {

/// While one of these lives, no thread gets the lock of the background threads.
class RefusedLock {
 public:
  RefusedLock() {
    const Class connections = object_getClass([NSConnection class]);
    platformLock.install(connections, @selector(lockForBackgroundThreadWithTimeout:), lock);
    platformUnlock.install(connections, @selector(unlockForBackgroundThread), unlock);
    unlocks = 0;
    isRefused = true;
  }
  ~RefusedLock() { isRefused = false; }
  RefusedLock(const RefusedLock &) = delete;
  RefusedLock &operator=(const RefusedLock &) = delete;

  /// How often it was given back.
  static int unlocked() { return unlocks; }

 private:
  static BOOL lock(id cls, SEL selector, NSTimeInterval seconds) {
    return isRefused ? NO : platformLock(cls, selector, seconds);
  }
  static void unlock(id cls, SEL selector) {
    ++unlocks;
    if (!isRefused) platformUnlock(cls, selector);
  }

  static constinit inline platform::ReplacedMethod<BOOL(NSTimeInterval)> platformLock;
  static constinit inline platform::ReplacedMethod<void()> platformUnlock;
  static inline std::atomic<bool> isRefused = false;
  static inline std::atomic<int> unlocks = 0;
};

NSString *const kGrant = @"grantAccess:::::::::";

NSDictionary *atOnce(NSArray *entries) {
  return @{@"reply" : success(entries)};
}

struct PermissionsTabLoads : PermissionsTab {
  /// Waits until so many loads of the tab have begun, and the agent has been asked by the first.
  bool waitUntilBegun(NSUInteger loads) const {
    return handleEventsUntil([&] {
      return [[tab valueForKey:@"newestLoad"] unsignedIntegerValue] == loads &&
             calls(@"getAccess::") >= 1;
    });
  }
};

}  // namespace

TEST_F(PermissionsTabLoads, OfTwoFoldersTheNewerOnesListStays) {
  agent.setScript(@{@"getAccess::" : @[ held(people(7)), atOnce(people(2)) ]});
  open(@"older");
  ASSERT_TRUE(waitUntilBegun(1));
  [tab setFilePath:@"newer"];
  ASSERT_TRUE(waitUntilBegun(2));
  resumeAgent();
  ASSERT_TRUE(handleEventsUntil([&] { return showsList(); }));
  EXPECT_EQ([[tab personList] count], 2u);
  EXPECT_TRUE(([argumentsOfLast(@"getAccess::") isEqual:@[ @"newer", @1 ]]));
}

TEST_F(PermissionsTabLoads, TheOlderOfTwoLoadsDoesNotHideThatTheNewerIsBusy) {
  const HeldReply holdOfNewer;
  EndedThreads *const threads = [[[EndedThreads alloc] init] autorelease];
  agent.setScript(@{
    @"getAccess::" : @[ held(people(7)), holdOfNewer.entry(@{@"reply" : success(people(2))}) ]
  });
  open(@"older");
  ASSERT_TRUE(waitUntilBegun(1));
  [tab setFilePath:@"newer"];
  ASSERT_TRUE(waitUntilBegun(2));
  resumeAgent();
  ASSERT_TRUE(handleEventsUntil([&] { return threads->count == 1; }));
  EXPECT_FALSE(showsList());
  EXPECT_FALSE([spinner() isHidden]);
  holdOfNewer.release();
  ASSERT_TRUE(handleEventsUntil([&] { return showsList(); }));
  EXPECT_EQ([[tab personList] count], 2u);
  EXPECT_TRUE([spinner() isHidden]);
}

TEST_F(PermissionsTabLoads, AnInvitationWhileTheFirstLoadRunsShowsTheInvited) {
  agent.setScript(@{@"getAccess::" : @[ held(people(1)), atOnce(people(2)) ]});
  open();
  ASSERT_TRUE(waitUntilBegun(1));
  // The invitation's loads wait for the agent on this thread.
  const RepeatingTimer release(NSConnectionReplyMode, [&] { resumeAgent(); });
  for (int i = 0; i < 2; ++i) {
    [[NSNotificationCenter defaultCenter] postNotificationName:@"UserAddedToShareFolder"
                                                        object:nil];
  }
  EXPECT_EQ([[tab personList] count], 2u);
  // The first load's list arrives, too late.
  handlePostedEvents();
  EXPECT_EQ(calls(@"getAccess::"), 3u);
  EXPECT_EQ([[tab personList] count], 2u);
  EXPECT_TRUE(showsList());
}

TEST_F(PermissionsTabLoads, AnActionThatWaitsForTheAgentIsNotHeldUpByALoad) {
  const HeldReply holdOfGrant;
  agent.setScript(@{
    @"getAccess::" : @[ atOnce(people(3)), held(people(5)) ],
    kGrant : holdOfGrant.entry(
        @{@"reply" : success(@1),
          @"serves" : @true})
  });
  openLoaded();
  SharedWith *const first = person(1);
  [tab setFilePath:@"folder-2"];
  ASSERT_TRUE(handleEventsUntil([&] { return calls(@"getAccess::") == 2; }));
  // No step of the load runs inside the action, which takes longer than the load. Nothing must
  // happen, so there is no condition to wait for.
  int looks = 0;
  const RepeatingTimer release(NSConnectionReplyMode, [&] {
    resumeAgent();
    if (calls(kGrant) == 1 && ++looks > 20) holdOfGrant.release();
  });
  choose(1, @"accessPermissionReadWriteKey");
  EXPECT_EQ(person(1), first);
  EXPECT_EQ([first accessPermission], 1);
  EXPECT_TRUE(handleEventsUntil([&] { return [[tab personList] count] == 5; }));
}

TEST_F(PermissionsTabLoads, TheListDoesNotChangeWhileAPopUpTracksTheMouse) {
  agent.setScript(@{@"getAccess::" : @[ atOnce(people(3)), atOnce(people(5)) ]});
  openLoaded();
  [tab setFilePath:@"folder-2"];
  // A mode without a timer or an event does not run. In each turn a step could be performed.
  int turns = 0;
  const RepeatingTimer tracking(NSEventTrackingRunLoopMode, [&] { ++turns; });
  while (turns < 25) {
    [[NSRunLoop currentRunLoop] runMode:NSEventTrackingRunLoopMode
                             beforeDate:[NSDate distantFuture]];
  }
  EXPECT_EQ([[tab personList] count], 3u);
  // Not even the first step, without which there is no second one.
  EXPECT_TRUE([spinner() isHidden]);
  EXPECT_TRUE(handleEventsUntil([&] { return [[tab personList] count] == 5; }));
}

TEST_F(PermissionsTabLoads, AQuestionIsAboutThePersonAndNotAboutTheRow) {
  NSDictionary *const anna = reader(@"anna", @"a", @"anna@x.org");
  NSDictionary *const bert = reader(@"bert", @"b", @"bert@x.org");
  agent.setScript(@{
    @"getAccess::" : @[ atOnce(@[ anna, bert ]), atOnce(@[ bert, anna ]) ],
    @"revokeAccess:::" : @{@"reply" : success(@1)}
  });
  openLoaded();
  NSWindow *const question = askToRemove(0);
  [tab setFilePath:@"folder-2"];
  ASSERT_TRUE(handleEventsUntil([&] { return text([person(0) personName]) == "Bert B"; }));
  press(question, 0);
  EXPECT_EQ(text([argumentsOfLast(@"revokeAccess:::") objectAtIndex:revoke_operation::kUserEmail]),
            "anna@x.org");
}

TEST_F(PermissionsTabLoads, BehindARefreshThatHangsTheTabSaysSoAndLaterLoadsWork) {
  NSString *const book = @"getEmployeeAddressBook";
  agent.setScript(@{book : held(@[]), @"getAccess::" : atOnce(people(3))});
  [loadedDelegate() updateAddressBook:nil];
  ASSERT_TRUE(handleEventsUntil([&] { return calls(book) == 1; }));
  open();
  EXPECT_TRUE(handleEventsUntil(
      [&] { return showsStatus(localizedText(@"cannotConnectToBrisvaleNowTextKey")); }));
  EXPECT_TRUE([spinner() isHidden]);
  EXPECT_EQ(calls(@"getAccess::"), 0u);
  resumeAgent();
  [tab setFilePath:@"folder-2"];
  EXPECT_TRUE(handleEventsUntil([&] { return showsList(); }));
  EXPECT_EQ([[tab personList] count], 3u);
}

TEST_F(PermissionsTabLoads, WithoutTheLockNeitherALoadNorARefreshAsksTheAgentOrGivesTheLockBack) {
  const RefusedLock refused;
  EndedThreads *const threads = [[[EndedThreads alloc] init] autorelease];
  [loadedDelegate() updateAddressBook:nil];
  open();
  EXPECT_TRUE(handleEventsUntil([&] { return threads->count >= 2; }));
  EXPECT_TRUE(showsStatus(localizedText(@"cannotConnectToBrisvaleNowTextKey")));
  EXPECT_EQ([agent.calls() count], 0u);
  EXPECT_EQ(refused.unlocked(), 0);
}

TEST_F(PermissionsTabLoads, ManyLoadsAtOnceAllReachTheAgentAndOneMoreShowsItsList) {
  constexpr NSUInteger kLoads = 12;
  answerList(people(2));
  openWindow();
  for (NSUInteger i = 0; i < kLoads; ++i) {
    [tab setFilePath:[NSString stringWithFormat:@"folder-%d", static_cast<int>(i)]];
  }
  EXPECT_TRUE(handleEventsUntil([&] { return calls(@"getAccess::") == kLoads && showsList(); }));
  answerList(people(3));
  [tab setFilePath:@"the last"];
  EXPECT_TRUE(handleEventsUntil([&] { return [[tab personList] count] == 3; }));
  EXPECT_EQ(text([argumentsOfLast(@"getAccess::") objectAtIndex:access_operation::kPathOrId]),
            "the last");
}
