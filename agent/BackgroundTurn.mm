#import "agent/BackgroundTurn.h"

#import <Foundation/Foundation.h>

#include <future>
#include <memory>

namespace {

struct Standstill {
  std::promise<void> begun;
  std::promise<void> over;
};

}  // namespace

/// What the main thread is asked to do.
@interface MainThreadStandstill : NSObject {
 @public
  std::shared_ptr<Standstill> *standstill;  // owned
}
- (void)wait;
@end

@implementation MainThreadStandstill

- (void)dealloc {
  delete standstill;
  [super dealloc];
}

- (void)wait {
  std::future<void> over = (*standstill)->over.get_future();
  (*standstill)->begun.set_value();
  over.wait();
}

@end

namespace agent {

namespace {

std::mutex &turn() {
  static std::mutex *const mutex = new std::mutex;  // threads may outlast static destructors
  return *mutex;
}

void closeConnectionsOfThread() {
  NSPort *const port = [[NSConnection defaultConnection] receivePort];
  for (NSConnection *connection in [NSConnection allConnections]) {
    if ([connection receivePort] == port) [connection invalidate];
  }
  [port invalidate];
}

/// Runs `work` on this thread while the main thread stands still between two events.
template <class Work>
void whileMainThreadStandsStill(Work work) {
  // Shared: the main thread may still be on its way out of it when this one goes on.
  const auto standstill = std::make_shared<Standstill>();
  MainThreadStandstill *const main = [[[MainThreadStandstill alloc] init] autorelease];
  main->standstill = new std::shared_ptr<Standstill>(standstill);
  std::future<void> begun = standstill->begun.get_future();
  [main performSelectorOnMainThread:@selector(wait)
                         withObject:nil
                      waitUntilDone:NO
                              modes:[NSArray arrayWithObject:NSDefaultRunLoopMode]];
  begun.wait();
  work();
  standstill->over.set_value();
}

}  // namespace

BackgroundTurn::BackgroundTurn() : lock_(turn(), std::defer_lock) {
  if (![NSThread isMainThread]) lock_.lock();
}

BackgroundTurn::~BackgroundTurn() {
  if (lock_.owns_lock()) whileMainThreadStandsStill(closeConnectionsOfThread);
}

}  // namespace agent
