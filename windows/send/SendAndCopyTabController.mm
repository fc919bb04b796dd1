#import "windows/send/SendAndCopyTabController.h"

#import "windows/send/CopyLinkController.h"
#import "windows/send/SendFileController.h"

@implementation SendAndCopyTabController

@synthesize sendAndCopyTab;
@synthesize sendFile;
@synthesize sendCopyFile;
@synthesize defaultTab;
@synthesize filePath;

- (id)init {
  return [super initWithWindowNibName:@"MainWindow"];
}

- (void)dealloc {
  [sendAndCopyTab release];
  [sendFile release];
  [sendCopyFile release];
  [filePath release];
  [super dealloc];
}

- (NSTabView *)tabView {
  return sendAndCopyTab;
}

- (void)disconnectTabs {
  [sendFile disconnectFromWindow];
  [sendCopyFile disconnectFromWindow];
}

- (void)closeActiveWindow:(NSNotification *)notification {
  NSLog(@"recieve Notification close send/copy window.");
  [super closeActiveWindow:notification];
}

@end
