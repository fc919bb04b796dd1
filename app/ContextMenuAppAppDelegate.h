#import "windows/ApplicationState.h"

#import <AppKit/AppKit.h>

@class AddressBookCompletion;
@class ContextMenuPlugin;

/// The application delegate: the one object that lives from the loading of the main interface
/// resource to the end of the process, and the state that all parts share. Every other part reaches
/// it as ApplicationState. Main thread, except where a method says otherwise.
@interface ContextMenuAppAppDelegate : NSObject <NSApplicationDelegate> {
 @private
  NSWindow *window;
  NSMenu *krvContextMenu;
  NSMenuItem *copyLink;
  NSMenuItem *sendFile;
  NSMenuItem *shareFolder;
  NSMenuItem *sendFolder;
  BOOL contextMenuFlag;
  NSMutableArray *addressBookForSend;
  NSMutableArray *addressBookForShare;
  NSMutableArray *employeeContacts;
  NSString *syncedFilePath;
  NSTimer *updateAddressBookTimer;
  NSDictionary *homeFolderInfo;
  ContextMenuPlugin *contextMenuPlugin;
}

@property (assign) IBOutlet NSWindow *window;
@property (assign) IBOutlet NSMenu *krvContextMenu;
@property (assign) IBOutlet NSMenuItem *copyLink;
@property (assign) IBOutlet NSMenuItem *sendFile;
@property (assign) IBOutlet NSMenuItem *shareFolder;
@property (assign) IBOutlet NSMenuItem *sendFolder;

/// YES while no window of the application is open and no direct copy is running. Nothing depends on
/// it; it makes these states observable.
@property (assign) BOOL contextMenuFlag;

/// Declared for the send tab; nothing fills it.
@property (copy) NSMutableArray *addressBookForSend;

/// One entry (a string, see AddressBookEntry.h) for each contact, in the user's alphabetical order
/// without regard to letter case.
@property (copy) NSMutableArray *addressBookForShare;

/// The address of each contact, in the agent's order.
@property (copy) NSMutableArray *employeeContacts;

/// The folder that the service keeps in sync: "/Users/", the login name, "/Brisvale". Deliberately
/// not made from the home directory, which may lie elsewhere. No trailing slash.
@property (copy) NSString *syncedFilePath;

/// The repeating daily refresh. A timer cannot be copied: the setter must not be used.
@property (copy) NSTimer *updateAddressBookTimer;

/// The home folder information that the agent gave at launch, empty when it gave none. Its key
/// "homefolder" holds the server id of the user's home folder.
@property (copy) NSDictionary *homeFolderInfo;

// A getter, although its name begins with "copy", which would transfer ownership.
- (NSMenuItem *)copyLink __attribute__((objc_method_family(none)));

/// Hides the application, as its windows and alerts do when they are done.
- (void)hideMe;

@end

/// What is selected in the Finder, and the menu for it.
@interface ContextMenuAppAppDelegate (ContextMenu)

/// The POSIX paths of what is selected in the Finder, in its order, then one empty string. A
/// folder's path ends with a slash; a name with a line feed in it gives two elements. nil when the
/// Finder does not answer. The caller owns the array. Blocks until the Finder has answered.
- (NSArray *)getSelectedFilesList NS_RETURNS_RETAINED;

/// Pops the context menu up at the pointer and returns when it has been dismissed; a chosen item
/// has sent its action by then. Every item is always offered, whatever is selected. Each call
/// leaves an invisible window behind.
- (void)showContextMenu;

/// What the actions do for an item outside the synced folder: logs, and hides the application.
/// Nothing else is shown.
- (void)showError;

@end

/// The actions of the context menu's items, on the first item of the Finder's selection; the others
/// are ignored. Each closes the application's open window first, whatever follows. A failure is
/// logged, shown application-modally except as showError says, and ends with the application
/// hidden. The sender is not used. Each blocks until file manager, sync engine library and agent
/// have answered.
@interface ContextMenuAppAppDelegate (MenuActions)

/// Puts a link to the item on the clipboard, without a window, and hides the application. Leaves
/// contextMenuFlag alone.
- (IBAction)CopyLink:(id)sender;

/// Opens the send and copy-link window for a file. What is selected is looked up as a file, even if
/// it is a folder.
- (IBAction)SendFile:(id)sender;

/// The same for a folder. What is selected is looked up as a folder, less the last character of its
/// path, even if it is a file.
- (IBAction)SendFolder:(id)sender;

/// Opens the share window for a folder inside "MyDocs" of the synced folder; no other can be
/// shared.
- (IBAction)ShareFolder:(id)sender;

@end

/// Server ids of local paths, from the sync engine library.
@interface ContextMenuAppAppDelegate (PathResolution)

// Each brackets its query with BvInitialize and BvUninitialize; the latter is called exactly once
// whatever happens. Each returns the first code that was not 0, unchanged, or 0. nil as a path is
// the empty path; characters that UTF-8 cannot hold are replaced.

// clang-format off

/// Whether the library knows the sync state of the item at path. The state itself goes no further
/// than this method: state is passed by value, deliberately.
- (int)GetFileState:(NSString *)path:(int)state;

/// Stores the server id of the file at path through outId (autoreleased) and returns 0, or returns
/// the library's code and leaves *outId as it was. idBuffer is only what the library's out-pointer
/// starts as.
- (int)GetFileIdByPath:(NSString *)path:(char *)idBuffer:(NSString **)outId;

/// As GetFileIdByPath:::, for a folder path without trailing slash. The folder "MyDocs" directly in
/// the synced folder (letter case counts) is the user's home folder: its id comes from
/// homeFolderInfo, nil when that has none, and the library is not asked.
- (int)GetFolderIdByPath:(NSString *)path:(char *)idBuffer:(NSString **)outId;

/// Whether substring occurs anywhere in string, without regard to letter case. NO when either is
/// nil or substring is empty.
- (BOOL)containsString:(NSString *)string:(NSString *)substring;

// clang-format on

@end

/// The lists behind recipient completion and the colleague check. With them the delegate is the
/// application's state to all other parts.
@interface ContextMenuAppAppDelegate (AddressBooks) <ApplicationState>

/// What completes recipients from addressBookForShare: one for the process, because the delegate's
/// fields are fixed.
- (AddressBookCompletion *)completion;

/// Replaces both lists with empty ones, asks the agent for the employee address book, and replaces
/// them with the filled lists, to which it adds what was added to the empty ones. Blocks the
/// calling thread until the agent has answered. When the agent cannot be reached the lists stay
/// empty, without a message. Any thread: the lists are exchanged on the main thread, where all
/// their readers are. Of several at a time the one that started last fills the lists.
- (void)getAddressBookForShareFolder;

/// The daily timer's action: getAddressBookForShareFolder on a new background thread. Returns at
/// once.
- (void)updateAddressBook:(NSTimer *)timer;

/// getAddressBookForShareFolder, but only while addressBookForShare holds no entry.
- (void)conditionalFetchAddressBook;

@end
