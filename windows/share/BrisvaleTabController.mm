#import "windows/share/BrisvaleTabController.h"

#import "windows/share/InviteTabController.h"
#import "windows/share/PermissionTabController.h"

@implementation BrisvaleTabController

@synthesize shareFolderTab;
@synthesize givePermissionTab;
@synthesize sendInviteTab;
@synthesize defaultTab;
@synthesize filePath;

- (id)init {
  return [super initWithWindowNibName:@"ShareFolder"];
}

- (void)dealloc {
  [shareFolderTab release];
  [givePermissionTab release];
  [sendInviteTab release];
  [filePath release];
  [super dealloc];
}

- (NSTabView *)tabView {
  return shareFolderTab;
}

- (void)disconnectTabs {
  [givePermissionTab disconnectFromWindow];
  [sendInviteTab disconnectFromWindow];
}

- (void)closeActiveWindow:(NSNotification *)notification {
  NSLog(@"recieve Notification - close share folder window");
  [super closeActiveWindow:notification];
}

@end
