#import "platform/gnustep/workspace/RunningApplicationList.h"

#include <mutex>

#import "platform/gnustep/workspace/ApplicationProcess.h"
#include "platform/gnustep/workspace/ProcessTable.h"

namespace {

using Entries = std::vector<platform::ApplicationProcessEntry>;

/// The result of the last reading of the whole process table.
class LastSeen {
 public:
  Entries stillRunning() {
    const std::lock_guard<std::mutex> lock(mutex_);
    std::erase_if(entries_, [](const auto &entry) { return !platform::isStillRunning(entry); });
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
  [self addEntries:lastSeen().stillRunning()];
  return self;
}

- (void)dealloc {
  [_found release];
  [super dealloc];
}

- (void)addEntries:(const Entries &)entries {
  for (const auto &entry : entries) {
    ApplicationProcess *const application = [[ApplicationProcess alloc] initWithEntry:entry];
    if (![_found containsObject:application]) [_found addObject:application];
    [application release];
  }
}

- (void)readAll {
  if (_isComplete) return;
  _isComplete = YES;
  const Entries entries = platform::runningApplicationProcesses();
  lastSeen().set(entries);
  [self addEntries:entries];
}

- (NSUInteger)count {
  [self readAll];
  return [_found count];
}

- (id)objectAtIndex:(NSUInteger)index {
  if (index >= [_found count]) [self readAll];
  return [_found objectAtIndex:index];
}

- (NSUInteger)countByEnumeratingWithState:(NSFastEnumerationState *)state
                                  objects:(id *)buffer
                                    count:(NSUInteger)length {
  // One at a time: the platform's own way would ask for the count first.
  const NSUInteger index = state->state;
  if (length == 0) return 0;
  if (index >= [_found count]) [self readAll];
  if (index >= [_found count]) return 0;
  buffer[0] = [_found objectAtIndex:index];
  state->state = index + 1;
  state->itemsPtr = buffer;
  state->mutationsPtr = &state->extra[0];
  return 1;
}

@end
