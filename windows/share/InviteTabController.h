#import "windows/TabController.h"

/// The invite tab: gives people access to the folder. The window's interface file creates it. Main
/// thread only.
@interface InviteTabController : RecipientTabController {
 @private
  IBOutlet NSTokenField *mailList;
  IBOutlet NSTextView *mailContent;
  IBOutlet NSPopUpButton *accessType;
  // Connections of the interface file that nothing uses.
  // NOLINTNEXTLINE(clang-analyzer-osx.cocoa.UnusedIvars): a connection that nothing uses
  IBOutlet NSTabViewItem *sendFile;
  // NOLINTNEXTLINE(clang-analyzer-osx.cocoa.UnusedIvars): a connection that nothing uses
  IBOutlet NSArrayController *iarrayController;
  IBOutlet NSProgressIndicator *spinGear;
  // NOLINTNEXTLINE(clang-analyzer-osx.cocoa.UnusedIvars): kept as declared
  NSArray *keys;
  NSString *filePath;
  BOOL isFileId;
  BOOL isFolder;
  // NOLINTNEXTLINE(clang-analyzer-osx.cocoa.UnusedIvars): a connection that nothing uses
  IBOutlet NSTabViewItem *inviteTab;
  NSWindow *ourMainWindow;
  NSWindow *modalWindow;
  NSTextField *modalWindowText;
}

/// The folder: its local path, or its server id when isFileId is YES.
@property (copy) NSString *filePath;
@property (assign) BOOL isFileId;

/// NO; not read here.
@property (assign) BOOL isFolder;

/// The window with the tab, nil once it has been closed. Alerts and the success sheet go there.
@property (retain) IBOutlet NSWindow *ourMainWindow;
@property (assign) IBOutlet NSWindow *modalWindow;
@property (assign) IBOutlet NSTextField *modalWindowText;

/// The invite button: checks all recipients, then grants each of them the chosen access. Blocks
/// until the agent has answered for each. After every failure what was entered stays.
- (IBAction)sendInvite:(id)sender;

/// Whether the address belongs to a colleague: by employeeContacts, else by the agent. YES when the
/// agent does not answer.
- (BOOL)isEmployee:(NSString *)address;

@end
