#import "platform/gnustep/workspace/RunningApplicationList.h"

#include <mutex>

#import "platform/gnustep/workspace/ApplicationProcess.h"
#include "platform/gnustep/workspace/ProcessTable.h"

namespace {

/// The result of the last reading of the whole process table.
class LastSeen {
 public:
  NSArray *processes() {
    const std::lock_guard<std::mutex> lock(mutex_);
    return [[processes_ retain] autorelease];
  }

  void set(NSArray *processes) {
    const std::lock_guard<std::mutex> lock(mutex_);
    [processes_ release];
    processes_ = [processes copy];
  }

 private:
  std::mutex mutex_;
  NSArray *processes_ = nil;
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
  _lastSeen = [lastSeen().processes() retain];
  return self;
}

- (void)dealloc {
  [_lastSeen release];
  [_found release];
  [super dealloc];
}

/// Of the processes that were seen by an earlier look, those that still run, one by one until there
/// are so many: who searches usually finds what it found before.
- (void)addLastSeenUntilCount:(NSUInteger)count {
  for (; _checked < [_lastSeen count] && [_found count] < count; ++_checked) {
    ApplicationProcess *const process = [_lastSeen objectAtIndex:_checked];
    if ([process isStillRunning]) [_found addObject:process];
  }
}

- (void)readAll {
  if (_isComplete) return;
  _isComplete = YES;
  [self addLastSeenUntilCount:NSUIntegerMax];
  NSMutableArray *const all = [NSMutableArray array];
  for (const auto &entry : platform::runningApplicationProcesses()) {
    ApplicationProcess *const process = [[ApplicationProcess alloc] initWithEntry:entry];
    [all addObject:process];
    if (![_found containsObject:process]) [_found addObject:process];
    [process release];
  }
  lastSeen().set(all);
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
