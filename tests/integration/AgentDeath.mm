#include <gtest/gtest.h>

#include <chrono>
#include <future>

#import "agent/BVDataModelController.h"
#include "tests/support/AgentProcess.h"

/// Asks the agent on a thread of its own.
@interface BackgroundQuestion : NSObject {
 @public
  std::promise<bool> isAnswered;
}
- (void)ask;
@end

@implementation BackgroundQuestion

- (void)ask {
  @autoreleasepool {
    BVDataModelController *const agent = [[[BVDataModelController alloc] init] autorelease];
    // clang-format off
    isAnswered.set_value([agent getAccess:@"id":YES] != nil);
    // clang-format on
  }
}

@end

/// Both threads have a connection to the agent's port, and each notices by itself that it is
/// closed.
TEST(AgentDeath, EndsTheCallOfABackgroundThreadWhileTheMainThreadHasAConnectionToo) {
  AgentProcess agent;
  agent.setScript(@{@"getAccess::" : @{@"die" : @"before"}});
  BVDataModelController *const ofMainThread = [[[BVDataModelController alloc] init] autorelease];
  // clang-format off
  ASSERT_NE([ofMainThread getUserInfo:@"a@b":NO], nil);
  // clang-format on
  BackgroundQuestion *const question = [[[BackgroundQuestion alloc] init] autorelease];
  std::future<bool> answered = question->isAnswered.get_future();
  [question performSelectorInBackground:@selector(ask) withObject:nil];
  ASSERT_EQ(answered.wait_for(std::chrono::seconds(60)), std::future_status::ready);
  EXPECT_FALSE(answered.get());
}
