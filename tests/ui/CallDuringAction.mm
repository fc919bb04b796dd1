#import "tests/ui/CallDuringAction.h"

#import "plugin/ContextMenuPlugin.h"
#include "tests/support/Events.h"

namespace {

/// A call that can be served is served in a fraction of this. Measured by the clock, not in turns
/// of the run loop, because the action around it waits for a file manager for five seconds only,
/// and on a busy machine a hundred turns take longer than that.
constexpr NSTimeInterval kSeconds = 1;
constexpr NSTimeInterval kTurnSeconds = 0.01;

}  // namespace

ContextMenuPlugin *pluginEndpoint() {
  static ContextMenuPlugin *const endpoint = [[ContextMenuPlugin alloc] init];
  return endpoint;
}

std::vector<std::string> callThatOpensAnotherWindow() {
  pluginEndpoint();
  return {PLUGIN_CALL, "send", "id-9", "Another.txt", "0", "0", "1", "1"};
}

/// Runs the default mode once, the first time that the reply mode runs.
@interface DefaultModeRunner : NSObject {
 @public
  const HeldReply *hold;
  ChildProcess *client;
  bool hasRun;
  bool wasServed;
}
@end

@implementation DefaultModeRunner

- (void)run:(NSTimer *)timer {
  [timer invalidate];
  hold->release();
  NSDate *const end = [NSDate dateWithTimeIntervalSinceNow:kSeconds];
  while ([end timeIntervalSinceNow] > 0 && !client->hasEnded()) {
    @autoreleasepool {
      NSDate *const soon = [NSDate dateWithTimeIntervalSinceNow:kTurnSeconds];
      [[NSRunLoop currentRunLoop] runMode:NSDefaultRunLoopMode beforeDate:soon];
      // With events in the queue, which nobody takes here, it returns at once.
      [NSThread sleepUntilDate:soon];
    }
  }
  hasRun = true;
  wasServed = client->hasEnded();
}

@end

CallDuringAction::CallDuringAction()
    : client_(callThatOpensAnotherWindow()), runner_([[DefaultModeRunner alloc] init]) {
  client_.waitForOutput("calling");
  runner_->hold = &hold_;
  runner_->client = &client_;
  NSTimer *const timer = [NSTimer timerWithTimeInterval:0
                                                 target:runner_
                                               selector:@selector(run:)
                                               userInfo:nil
                                                repeats:NO];
  [[NSRunLoop currentRunLoop] addTimer:timer forMode:NSConnectionReplyMode];
}

CallDuringAction::~CallDuringAction() {
  [runner_ release];
}

bool CallDuringAction::hasWaited() {
  return runner_->hasRun && !runner_->wasServed;
}

bool CallDuringAction::isServed() {
  return handleEventsUntil([this] { return client_.hasEnded(); });
}
