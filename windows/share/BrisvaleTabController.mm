#import "windows/share/BrisvaleTabController.h"

#import "windows/TabWindowController.h"
#import "windows/share/InviteTabController.h"
#import "windows/share/PermissionTabController.h"

@implementation BrisvaleTabController

@synthesize shareFolderTab;
@synthesize givePermissionTab;
@synthesize sendInviteTab;
@synthesize defaultTab;
@synthesize filePath;

- (id)init {
  if ((self = [super initWithWindowNibName:@"ShareFolder"])) closeWhenAnotherOpens(self);
  return self;
}

- (void)dealloc {
  [[NSNotificationCenter defaultCenter] removeObserver:self];
  [shareFolderTab release];
  [givePermissionTab release];
  [sendInviteTab release];
  [filePath release];
  [super dealloc];
}

- (void)selectTabAtPosition:(std::int64_t)position {
  [self setDefaultTab:position];
}

- (void)awakeFromNib {
  prepareWindow(self, shareFolderTab, defaultTab);
}

- (void)close {
  [[self window] close];
}

- (void)closeActiveWindow:(NSNotification *)notification {
  (void)notification;
  NSLog(@"recieve Notification - close share folder window");
  [self close];
}

#pragma mark - NSWindowDelegate

- (void)windowWillClose:(NSNotification *)notification {
  (void)notification;
  windowIsClosing(self);
  // They may live on for a while (a timer of a success sheet keeps one), the window does not.
  [givePermissionTab disconnectFromWindow];
  [sendInviteTab disconnectFromWindow];
  // Nothing owns the controller, on purpose: the end of its window is its own.
  [self dealloc];
}

@end
