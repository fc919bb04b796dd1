#import "windows/TabController.h"

/// The send tab: mails a link to one file or folder. The window's interface file creates it. Main
/// thread only.
@interface SendFileController : RecipientTabController {
 @private
  IBOutlet NSTokenField *mailList;
  NSTextField *mailSubject;
  IBOutlet NSTextView *mailContent;
  IBOutlet NSButton *isCopyMe;
  IBOutlet NSButton *isNotifyMe;
  IBOutlet NSButton *isAskForEmail;
  IBOutlet NSPopUpButton *noOfDownloads;
  IBOutlet NSProgressIndicator *spinner;
  NSString *filePath;
  BOOL isFileId;
  BOOL isFolder;
  IBOutlet NSTabViewItem *sendFileTab;
  NSWindow *ourMainWindow;
  NSWindow *modalWindow;
  NSTextField *modalWindowText;
}

/// The subject field. The opener of the window sets the default subject.
@property (assign) IBOutlet NSTextField *mailSubject;

/// Local path of the item, or its server id when isFileId is YES, which starts as NO like isFolder.
@property (copy) NSString *filePath;
@property (assign) BOOL isFileId;
@property (assign) BOOL isFolder;

/// The window with the tab, nil once it has been closed. Alerts and the success sheet go there.
@property (assign) IBOutlet NSWindow *ourMainWindow;
@property (assign) IBOutlet NSWindow *modalWindow;
@property (assign) IBOutlet NSTextField *modalWindowText;

/// The Send button: checks the recipients and mails the link with the options of the tab. Blocks
/// until the agent answers. After a success the window closes by itself; after an alert everything
/// that was entered stays as it was.
- (IBAction)sendMail:(id)sender;

/// The Cancel button: closes the window.
- (IBAction)cancelSendMail:(id)sender;

/// Whether the box is checked; mixed is not.
- (BOOL)checkBoxState:(NSButton *)box;

/// Sets the label of the tab.
- (void)setLabelForTab:(NSString *)label;

@end
