#import "windows/share/BackgroundLoad.h"

#import "windows/share/PermissionTabController.h"

@implementation BackgroundLoad

+ (void)startForTab:(PermissionTabController *)tab {
  BackgroundLoad *const load = [[[BackgroundLoad alloc] init] autorelease];
  load->_tab = [tab retain];  // until letGo
  [load performSelectorInBackground:@selector(run) withObject:nil];
}

- (void)run {
  @autoreleasepool {
    // Its own pool is empty before the tab is let go: nothing in it may hold the tab longer.
    @autoreleasepool {
      [_tab refershManagePermissionsView];
    }
    // Between two events, as the steps of the load: while the main thread waits for the agent, the
    // tab may be the one that waits.
    [self performSelectorOnMainThread:@selector(letGo)
                           withObject:nil
                        waitUntilDone:YES
                                modes:[NSArray arrayWithObject:NSDefaultRunLoopMode]];
  }
}

- (void)letGo {
  [_tab release];
  _tab = nil;
}

@end
