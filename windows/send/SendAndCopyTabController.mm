#import "windows/send/SendAndCopyTabController.h"

#import "windows/TabWindowController.h"
#import "windows/send/CopyLinkController.h"
#import "windows/send/SendFileController.h"

@implementation SendAndCopyTabController

@synthesize sendAndCopyTab;
@synthesize sendFile;
@synthesize sendCopyFile;
@synthesize defaultTab;
@synthesize filePath;

- (id)init {
  if ((self = [super initWithWindowNibName:@"MainWindow"])) closeWhenAnotherOpens(self);
  return self;
}

- (void)dealloc {
  [[NSNotificationCenter defaultCenter] removeObserver:self];
  [sendAndCopyTab release];
  [sendFile release];
  [sendCopyFile release];
  [filePath release];
  [super dealloc];
}

- (void)selectTabAtPosition:(std::int64_t)position {
  [self setDefaultTab:position];
}

- (void)awakeFromNib {
  prepareWindow(self, sendAndCopyTab, defaultTab);
}

- (void)close {
  [[self window] close];
}

- (void)closeActiveWindow:(NSNotification *)notification {
  (void)notification;
  NSLog(@"recieve Notification close send/copy window.");
  [self close];
}

#pragma mark - NSWindowDelegate

- (void)windowWillClose:(NSNotification *)notification {
  (void)notification;
  windowIsClosing(self);
  // They may live on for a while (a timer of a success sheet keeps one), the window does not.
  [sendFile disconnectFromWindow];
  [sendCopyFile disconnectFromWindow];
  // Nothing owns the controller, on purpose: the end of its window is its own.
  [self dealloc];
}

@end
