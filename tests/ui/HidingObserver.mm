#import "tests/ui/HidingObserver.h"

#import "tests/ui/WindowFixtures.h"

@implementation HidingObserver

- (id)init {
  if ((self = [super init])) {
    [[NSNotificationCenter defaultCenter] addObserver:self
                                             selector:@selector(willHide:)
                                                 name:NSApplicationWillHideNotification
                                               object:nil];
  }
  return self;
}

- (void)dealloc {
  [[NSNotificationCenter defaultCenter] removeObserver:self];
  [super dealloc];
}

- (void)willHide:(NSNotification *)notification {
  (void)notification;
  ++hidings;
  flag = [loadedDelegate() contextMenuFlag];
  controllers.clear();
  for (NSWindow *window : WindowsWithoutAgent::visibleWindows()) {
    controllers.push_back([window windowController]);
  }
}

@end
