#include <gtest/gtest.h>

#include <atomic>

#import "agent/AgentRequest.h"
#import "agent/BVDataModelController.h"
#import "agent/BackgroundRequestLock.h"
#include "tests/support/AgentProcess.h"
#include "tests/support/Pump.h"
#include "tests/support/Strings.h"
#import "windows/RequestSuspension.h"

// What a platform exception must not leave changed.

/// A request on a thread of its own that raises under the lock of the background requests.
@interface RaisingRequest : NSObject {
 @public
  std::atomic<int> hadLock;
  std::atomic<bool> isOver;
}
@end

@implementation RaisingRequest

- (void)run {
  @autoreleasepool {
    const auto request = [&] {
      ++hadLock;
      [NSException raise:NSGenericException format:@"under the lock"];
    };
    for (int i = 0; i < 2; ++i) {
      @try {
        agent::withBackgroundRequestLock(request);
      } @catch (NSException *) {
      }
    }
  }
  isOver = true;
}

@end

namespace {

/// The reason of the exception with which work ends, nil when it ends without one.
template <class Work>
NSString *reasonOf(Work work) {
  @try {
    work();
    return nil;
  } @catch (NSException *exception) {
    return [exception reason];
  }
}

id raise() {
  [NSException raise:NSGenericException format:@"as asked"];
  return nil;
}

BOOL isServedInDefaultMode(NSConnection *connection) {
  return [[connection requestModes] containsObject:NSDefaultRunLoopMode];
}

}  // namespace

TEST(Exceptions, PassOnAfterWhatWasChangedIsRestored) {
  int state = 0;
  NSString *const reason = reasonOf([&] {
    agent::restoringAfterwards(
        [&] {
          state = 1;
          raise();
        },
        [&] { state += 10; });
  });
  EXPECT_EQ(text(reason), "as asked");
  EXPECT_EQ(state, 11);
}

TEST(Exceptions, WithoutOneTheResultIsReturnedAfterWhatWasChangedIsRestored) {
  int state = 1;
  EXPECT_EQ(agent::restoringAfterwards([&] { return state; }, [&] { state = 2; }), 1);
  EXPECT_EQ(state, 2);
}

TEST(Exceptions, ThatEndALookUpLeaveTheTimeoutsOfTheDefaultConnection) {
  NSConnection *const connection = [NSConnection defaultConnection];
  agent::setTimeouts(connection, {77, 88});
  NSTimeInterval during = 0;
  NSString *const reason = reasonOf([&] {
    agent::boundingLookUp(@"NobodyAtAll", 5, nil, [&] {
      during = [connection replyTimeout];
      return raise();
    });
  });
  EXPECT_EQ(text(reason), "as asked");
  EXPECT_EQ(during, 5);
  EXPECT_EQ([connection replyTimeout], 77);
  EXPECT_EQ([connection requestTimeout], 88);
}

TEST(Exceptions, ThatEndAnOperationLeaveTheTimeoutsOfItsConnection) {
  AgentProcess agent;
  BVDataModelController *const controller = [[[BVDataModelController alloc] init] autorelease];
  id const proxy = [controller krvAgentProxy];
  NSConnection *const connection = agent::connectionOf(proxy);
  agent::setTimeouts(connection, {77, 88});
  NSTimeInterval during = 0;
  EXPECT_EQ(agent::sendRequest(proxy,
                               [&] {
                                 during = [connection replyTimeout];
                                 return raise();
                               }),
            nil);
  EXPECT_EQ(during, agent::kNoTimeout);
  EXPECT_EQ([connection replyTimeout], 77);
  EXPECT_EQ([connection requestTimeout], 88);
}

TEST(Exceptions, ThatEndAnActionResumeTheRequests) {
  NSConnection *const serving = [[[NSConnection alloc] init] autorelease];
  [serving setRootObject:@"root"];
  BOOL servedDuringAction = YES;
  NSString *const reason = reasonOf([&] {
    withRequestsSuspended([&] {
      servedDuringAction = isServedInDefaultMode(serving);
      raise();
    });
  });
  EXPECT_EQ(text(reason), "as asked");
  EXPECT_FALSE(servedDuringAction);
  EXPECT_TRUE(isServedInDefaultMode(serving));
  [serving invalidate];
}

TEST(Exceptions, ThatEndABackgroundRequestGiveTheLockBack) {
  RaisingRequest *const first = [[[RaisingRequest alloc] init] autorelease];
  RaisingRequest *const second = [[[RaisingRequest alloc] init] autorelease];
  for (RaisingRequest *request : {first, second}) {
    [request performSelectorInBackground:@selector(run) withObject:nil];
    EXPECT_TRUE(pumpUntil([&] { return request->isOver.load(); }));
    EXPECT_EQ(request->hadLock, 2);
  }
}
