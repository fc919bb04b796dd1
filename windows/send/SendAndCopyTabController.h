#import "windows/TabWindowController.h"

@class CopyLinkController;
@class SendFileController;

/// The window in which a link to one item is mailed or copied.
///
/// Made by openWindow (TabWindowController.h), whose caller then sets the item of both tab
/// controllers. Nobody owns it: when its window closes it releases itself. Main thread only.
@interface SendAndCopyTabController : TabWindowController {
 @private
  NSTabView *sendAndCopyTab;
  SendFileController *sendFile;
  CopyLinkController *sendCopyFile;
  std::int64_t defaultTab;
  NSString *filePath;
}

/// The first tab sends, the second copies the link.
@property (retain) IBOutlet NSTabView *sendAndCopyTab;
@property (retain) IBOutlet SendFileController *sendFile;
@property (retain) IBOutlet CopyLinkController *sendCopyFile;

/// Index of the tab that is shown when the window is loaded. One that does not exist shows the
/// first.
@property (nonatomic, assign) std::int64_t defaultTab;

/// Not read here: each tab controller has its own.
@property (copy) NSString *filePath;

/// A controller without a window yet; the first use of window loads it.
- (id)init;

@end
