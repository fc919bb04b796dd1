#import "agent/ResultDictionary.h"
#import "windows/TabController.h"

/// The copy-link tab: makes a link to one item and puts it on the clipboard. The window's interface
/// file creates it.
///
/// A caller without a window makes one with init, sets filePath, isFileId and isFolder, and calls
/// copyLinkDirectly: getCopyLink:::: and pasteToClipboard: use no control.
/// Main thread only.
@interface CopyLinkController : TabController {
 @private
  IBOutlet NSButton *isNotifyMe;
  IBOutlet NSButton *isAskForMail;
  IBOutlet NSPopUpButton *noOfDownloads;
  IBOutlet NSProgressIndicator *spinGear;
  NSString *filePath;
  BOOL isFileId;
  BOOL isFolder;
  NSTabViewItem *copyLinkTab;
  NSWindow *ourMainWindow;
  NSWindow *modalWindow;
  NSTextField *modalWindowText;
}

/// Local path of the item, or its server id when isFileId is YES, which starts as NO like isFolder.
@property (copy) NSString *filePath;
@property (assign) BOOL isFileId;
@property (assign) BOOL isFolder;

@property (retain) IBOutlet NSTabViewItem *copyLinkTab;

/// The window with the tab, nil once it has been closed. Alerts and the success sheet go there.
@property (retain) IBOutlet NSWindow *ourMainWindow;
@property (assign) IBOutlet NSWindow *modalWindow;
@property (assign) IBOutlet NSTextField *modalWindowText;

// A getter, although its name begins with "copy", which would transfer ownership.
- (NSTabViewItem *)copyLinkTab __attribute__((objc_method_family(none)));

/// The copy button: copies the link with the options of the tab. Blocks until the agent answers.
/// After a success the window closes by itself; after an alert everything stays as it was.
- (IBAction)sendCopyLink:(id)sender;

/// The Cancel button: closes the window.
- (IBAction)cancelSendCopyLink:(id)sender;

/// Whether the box is checked; mixed is not.
- (BOOL)checkBoxState:(NSButton *)box;

/// Asks the agent for a link to filePath, as a file or a folder by isFolder. The first argument is
/// not used, on purpose: callers set filePath. downloads: decimal text, "-1" for unlimited.
/// Blocks until the agent answers. Returns the reply (see ResultDictionary.h), nil when there is
/// none; autoreleased.
// clang-format off
- (NSDictionary *)getCopyLink:(NSString *)unusedPath
                             :(BOOL)notify
                             :(BOOL)askForMail
                             :(NSString *)downloads;
// clang-format on

/// Clears the general pasteboard, always and first, so that after a failure nobody pastes its
/// former contents for the link. When the reply's "error" reads "0", writes the link and returns
/// "0", also when the writing fails; otherwise returns the reply's "errorMessage" (nil for nil).
- (NSString *)pasteToClipboard:(NSDictionary *)reply;

@end

/// Copies a link to the clipboard without a window, with the options of such a copy (the user is
/// notified of downloads, nobody is asked for an e-mail address, downloads are unlimited), logs how
/// it ended, and returns that. The caller tells the user.
///
/// controller: made with init; knows the item. path: passed to getCopyLink::::, which does not use
/// it. Blocks until the agent has answered. Main thread.
agent::ReplyKind copyLinkDirectly(CopyLinkController *controller, NSString *path);
