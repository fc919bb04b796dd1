#import "platform/gnustep/connections/NSConnection+BackgroundLock.h"

#include <chrono>
#include <condition_variable>
#include <future>
#include <memory>
#include <mutex>

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

namespace {

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

/// The turn, which one thread has at a time.
class Turn {
 public:
  bool begin(std::chrono::duration<double> limit) {
    std::unique_lock<std::mutex> lock(mutex_);
    while (state_ != State::Free) {
      const auto turn = number_;
      if (state_ == State::Ending) {
        changed_.wait(lock, [&] { return number_ != turn; });
        continue;
      }
      const auto isOver = [&] { return number_ != turn || state_ == State::Ending; };
      if (!changed_.wait_for(lock, limit, isOver)) return false;
    }
    state_ = State::Asking;
    return true;
  }

  void beginEnd() {
    const std::lock_guard<std::mutex> guard(mutex_);
    state_ = State::Ending;
    changed_.notify_all();
  }

  void end() {
    const std::lock_guard<std::mutex> guard(mutex_);
    state_ = State::Free;
    ++number_;
    changed_.notify_all();
  }

 private:
  enum class State { Free, Asking, Ending };

  std::mutex mutex_;
  std::condition_variable changed_;
  State state_ = State::Free;
  /// How many turns have ended: tells a turn from the next one.
  unsigned long number_ = 0;
};

Turn &turnOfThreads() {
  static Turn *const turn = new Turn;  // threads may outlast static destructors
  return *turn;
}

}  // namespace

@implementation NSConnection (BackgroundTurns)

+ (BOOL)beginTurnOfThreadWithin:(NSTimeInterval)seconds {
  return turnOfThreads().begin(std::chrono::duration<double>(seconds));
}

+ (void)endTurnOfThread {
  turnOfThreads().beginEnd();
  whileMainThreadStandsStill(closeConnectionsOfThread);
  turnOfThreads().end();
}

@end
