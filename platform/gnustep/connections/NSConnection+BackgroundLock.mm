#import "platform/gnustep/connections/NSConnection+BackgroundLock.h"

#include <chrono>
#include <condition_variable>
#include <future>
#include <memory>
#include <mutex>

namespace {

/// One blocking of the main thread.
struct Block {
  std::promise<void> begun;
  std::promise<void> over;
};

}  // namespace

/// The target of the request to the main thread.
@interface MainThreadBlocker : NSObject {
 @public
  std::shared_ptr<Block> *block;  // owned
}
- (void)wait;
@end

@implementation MainThreadBlocker

- (void)dealloc {
  delete block;
  [super dealloc];
}

- (void)wait {
  std::future<void> over = (*block)->over.get_future();
  (*block)->begun.set_value();
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

/// Runs `work` on this thread while the main thread is blocked between two events.
template <class Work>
void withMainThreadBlocked(Work work) {
  // Shared, because the main thread may still use it after this function has returned.
  const auto block = std::make_shared<Block>();
  MainThreadBlocker *const blocker = [[[MainThreadBlocker alloc] init] autorelease];
  blocker->block = new std::shared_ptr<Block>(block);
  std::future<void> begun = block->begun.get_future();
  [blocker performSelectorOnMainThread:@selector(wait)
                            withObject:nil
                         waitUntilDone:NO
                                 modes:[NSArray arrayWithObject:NSDefaultRunLoopMode]];
  begun.wait();
  work();
  block->over.set_value();
}

class BackgroundLock {
 public:
  bool lock(std::chrono::duration<double> timeout) {
    std::unique_lock<std::mutex> guard(mutex_);
    while (state_ != State::Free) {
      const auto holder = holder_;
      if (state_ == State::Unlocking) {
        changed_.wait(guard, [&] { return holder_ != holder; });
        continue;
      }
      const auto isOver = [&] { return holder_ != holder || state_ == State::Unlocking; };
      if (!changed_.wait_for(guard, timeout, isOver)) return false;
    }
    state_ = State::Locked;
    return true;
  }

  void beginUnlock() {
    const std::lock_guard<std::mutex> guard(mutex_);
    state_ = State::Unlocking;
    changed_.notify_all();
  }

  void unlock() {
    const std::lock_guard<std::mutex> guard(mutex_);
    state_ = State::Free;
    ++holder_;
    changed_.notify_all();
  }

 private:
  enum class State { Free, Locked, Unlocking };

  std::mutex mutex_;
  std::condition_variable changed_;
  State state_ = State::Free;
  /// How often the lock has been given back: tells one holder from the next.
  unsigned long holder_ = 0;
};

BackgroundLock &backgroundLock() {
  static auto *const lock = new BackgroundLock;  // threads may outlast static destructors
  return *lock;
}

}  // namespace

@implementation NSConnection (BackgroundLock)

+ (BOOL)lockForBackgroundThreadWithTimeout:(NSTimeInterval)seconds {
  return backgroundLock().lock(std::chrono::duration<double>(seconds));
}

+ (void)unlockForBackgroundThread {
  backgroundLock().beginUnlock();
  withMainThreadBlocked(closeConnectionsOfThread);
  backgroundLock().unlock();
}

@end
