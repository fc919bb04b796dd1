#import "windows/TabController.h"

#include <cstdint>

@class AccessListLoad;
@class SharedWith;

/// The permissions tab: who has access to the folder, one row each. The window's interface file
/// creates it. Main thread, except where a method says otherwise.
///
/// Registered for "UserAddedToShareFolder" from its initialisation until disconnectFromWindow, and
/// not to its end, which a load may put off to any time.
@interface PermissionTabController : TabController <NSComboBoxDelegate> {
 @private
  NSMutableArray *personList;
  // NOLINTNEXTLINE(clang-analyzer-osx.cocoa.UnusedIvars): a connection that nothing uses
  IBOutlet NSTextField *nameofPerson;
  NSPopUpButton *permissionType;
  // NOLINTNEXTLINE(clang-analyzer-osx.cocoa.UnusedIvars): a connection that nothing uses
  IBOutlet NSButton *removeEntry;
  IBOutlet NSArrayController *arrayController;
  // NOLINTNEXTLINE(clang-analyzer-osx.cocoa.UnusedIvars): a connection that nothing uses
  IBOutlet NSView *currView;
  IBOutlet NSCollectionView *collectionViewForAllEntries;
  IBOutlet NSScrollView *fullScrollView;
  IBOutlet NSTextField *usersText;
  IBOutlet NSTextField *notSharingText;
  NSString *filePath;
  BOOL isFileId;
  IBOutlet NSProgressIndicator *spinGear;
  // NOLINTNEXTLINE(clang-analyzer-osx.cocoa.UnusedIvars): kept as declared
  NSArray *keys;
  // NOLINTNEXTLINE(clang-analyzer-osx.cocoa.UnusedIvars): a connection that nothing uses
  IBOutlet NSTabViewItem *permissionTab;
  NSWindow *ourMainWindow;
  NSWindow *modalWindow;
  NSTextField *modalWindowText;
  // Behind the outlets and the public state: what keeps all of it consistent.
  std::uint64_t newestLoad;
  NSMutableArray *loadedList;
  SharedWith *personInQuestion;
  BOOL observesFilePath;
}

/// The rows. The setter stores the very array that it is given, without a copy or a reference of
/// its own: the list is changed in place, and the array controller bound to it keeps it alive.
@property (copy) NSMutableArray *personList;

/// The prototype row's pop-up. Handlers get the row's own as their sender.
@property (retain) IBOutlet NSPopUpButton *permissionType;

/// The folder: its local path, or its server id when isFileId is YES. Observed: each assignment
/// loads the list on a thread of its own.
@property (copy) NSString *filePath;

/// Starts as YES.
@property (assign) BOOL isFileId;

/// The window with the tab, nil once it has been closed. Alerts and the success sheet go there.
@property (retain) IBOutlet NSWindow *ourMainWindow;
@property (assign) IBOutlet NSWindow *modalWindow;
@property (assign) IBOutlet NSTextField *modalWindowText;

/// Registers for "UserAddedToShareFolder".
- (id)init;

/// Loads the list on a thread of its own. Ignores its arguments.
- (void)observeValueForKeyPath:(NSString *)keyPath
                      ofObject:(id)object
                        change:(NSDictionary *)change
                       context:(void *)context;

/// Loads the list at once: somebody was invited.
- (void)listenNotification:(NSNotification *)notification;

/// Asks the agent who has access to the folder and shows it, or why it cannot be shown. Any thread:
/// it is the calling thread that waits for the agent. Of several loads at a time the one that began
/// last decides what is shown.
- (void)refershManagePermissionsView;

/// Changes of of the list by the array controller.
- (void)insertObject:(SharedWith *)person inPersonListAtIndex:(NSUInteger)index;
- (void)removeObjectFromPersonListAtIndex:(NSUInteger)index;

/// To be called when the window closes, or before a tab without one is released: removes the tab
/// from the observers of "UserAddedToShareFolder", too.
- (void)disconnectFromWindow;

@end

/// What the user does with the rows.
@interface PermissionTabController (Actions)

/// A row's pop-up was used: gives the person the chosen access, unless they have it already. The
/// row shows the choice from then on, whatever the agent answers. Blocks until the agent has
/// answered.
- (IBAction)popUpButtonSelectionDidChange:(NSPopUpButton *)popUp;

/// A row's remove button was used: asks whether that is meant.
- (IBAction)removeEntryClicked:(NSButton *)button;

/// The answer to that question; row: the row's index as the question's context.
- (void)handleResult:(NSAlert *)alert
          withResult:(std::int64_t)returnCode
          withSender:(std::int64_t)row;

/// Takes the access of the person in a row away; row: the index as a number. The row goes when the
/// agent has done it, and not before. Nothing for a row that does not exist. Blocks until the agent
/// has answered.
- (void)revokeAccessToUser:(NSNumber *)row;

@end
