#import "windows/TabController.h"

#include <cstdint>

@class AccessListLoad;
@class SharedWith;

/// The permissions tab: who has access to the folder, one row each. The window's interface file
/// creates it. Main thread, except where a method says otherwise.
///
/// Observes "UserAddedToShareFolder" from its initialisation until disconnectFromWindow; a load may
/// retain it longer than that.
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
  // Private state.
  std::uint64_t newestLoad;
  NSMutableArray *loadedList;
  SharedWith *personInQuestion;
  BOOL observesFilePath;
}

/// The rows. The setter neither copies nor retains the array: the list is changed in place, and the
/// array controller bound to it retains it.
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

/// Asks the agent who has access to the folder and shows the answer, or why there is none. Any
/// thread; blocks the calling thread. Of several loads at a time the one that started last decides
/// what is shown.
- (void)refershManagePermissionsView;

/// Changes of the list by the array controller.
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

/// The answer to that question. context: the row's index. The types are those with which the
/// platform sends this, on 32-bit Macs too.
- (void)handleResult:(NSAlert *)alert withResult:(NSInteger)returnCode withSender:(void *)context;

/// Revokes the access of the person in a row. row: the index as a number; does nothing for a row
/// that does not exist. The row is removed after the agent has succeeded. Blocks until the agent
/// has answered.
- (void)revokeAccessToUser:(NSNumber *)row;

@end
