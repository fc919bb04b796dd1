#import "platform/gnustep/workspace/RunningApplicationList.h"

#include <mutex>

#import "platform/gnustep/workspace/ApplicationProcess.h"
#include "platform/gnustep/workspace/ProcessTable.h"

namespace {

using Entries = std::vector<platform::ApplicationProcessEntry>;

/// The result of the last reading of the whole process table.
class LastSeen {
 public:
  Entries entries() {
    const std::lock_guard<std::mutex> lock(mutex_);
    return entries_;
  }

  void set(const Entries &entries) {
    const std::lock_guard<std::mutex> lock(mutex_);
    entries_ = entries;
  }

 private:
  std::mutex mutex_;
  Entries entries_;
};

LastSeen &lastSeen() {
  static LastSeen seen;
  return seen;
}

}  // namespace

@implementation RunningApplicationList

- (id)init {
  // NOLINTNEXTLINE(clang-analyzer-osx.cocoa.SelfInit): an array's init would call this one again
  _found = [[NSMutableArray alloc] init];
  _lastSeen = new Entries(lastSeen().entries());
  return self;
}

- (void)dealloc {
  delete _lastSeen;
  [_found release];
  [super dealloc];
}

- (void)addEntry:(const platform::ApplicationProcessEntry &)entry {
  ApplicationProcess *const application = [[ApplicationProcess alloc] initWithEntry:entry];
  if (![_found containsObject:application]) [_found addObject:application];
  [application release];
}

/// Of the processes that were seen by an earlier look, those that still run, one by one until there
/// are so many: who searches usually finds what it found before.
- (void)addLastSeenUntilCount:(NSUInteger)count {
  for (; _checked < _lastSeen->size() && [_found count] < count; ++_checked) {
    const platform::ApplicationProcessEntry &entry = (*_lastSeen)[_checked];
    if (platform::isStillRunning(entry)) [self addEntry:entry];
  }
}

- (void)readAll {
  if (_isComplete) return;
  _isComplete = YES;
  [self addLastSeenUntilCount:NSUIntegerMax];
  const Entries entries = platform::runningApplicationProcesses();
  lastSeen().set(entries);
  for (const platform::ApplicationProcessEntry &entry : entries) [self addEntry:entry];
}

/// Makes sure that there are so many, if they run at all.
- (void)findCount:(NSUInteger)count {
  if ([_found count] < count) [self addLastSeenUntilCount:count];
  if ([_found count] < count) [self readAll];
}

- (NSUInteger)count {
  [self readAll];
  return [_found count];
}

- (id)objectAtIndex:(NSUInteger)index {
  [self findCount:index + 1];
  return [_found objectAtIndex:index];
}

- (NSUInteger)countByEnumeratingWithState:(NSFastEnumerationState *)state
                                  objects:(id *)buffer
                                    count:(NSUInteger)length {
  // One at a time: the platform's own way would ask for the count first.
  const NSUInteger index = state->state;
  if (length == 0) return 0;
  [self findCount:index + 1];
  if (index >= [_found count]) return 0;
  buffer[0] = [_found objectAtIndex:index];
  state->state = index + 1;
  state->itemsPtr = buffer;
  state->mutationsPtr = &state->extra[0];
  return 1;
}

@end
