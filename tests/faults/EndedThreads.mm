#import "tests/faults/EndedThreads.h"

@implementation EndedThreads

- (id)init {
  if ((self = [super init])) {
    [[NSNotificationCenter defaultCenter] addObserver:self
                                             selector:@selector(threadWillExit:)
                                                 name:NSThreadWillExitNotification
                                               object:nil];
  }
  return self;
}

- (void)dealloc {
  [[NSNotificationCenter defaultCenter] removeObserver:self];
  [super dealloc];
}

/// On the thread that ends.
- (void)threadWillExit:(NSNotification *)notification {
  (void)notification;
  ++count;
}

@end
