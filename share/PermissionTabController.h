#import <AppKit/AppKit.h>

#include <cstdint>

@class SharedWith;

/// The permissions tab: who has access to the folder, one row each. The window's interface file
/// creates it. Main thread, except where a method says otherwise.
///
/// Stays registered for "UserAddedToShareFolder" to its end and beyond, which is the notification
/// centre's business.
@interface PermissionTabController : NSObject <NSComboBoxDelegate> {
 @private
  NSMutableArray *personList;
  IBOutlet NSTextField *nameofPerson;  // NOLINT(clang-analyzer-osx.cocoa.UnusedIvars)
  NSPopUpButton *permissionType;
  IBOutlet NSButton *removeEntry;  // NOLINT(clang-analyzer-osx.cocoa.UnusedIvars)
  IBOutlet NSArrayController *arrayController;
  IBOutlet NSView *currView;  // NOLINT(clang-analyzer-osx.cocoa.UnusedIvars)
  IBOutlet NSCollectionView *collectionViewForAllEntries;
  IBOutlet NSScrollView *fullScrollView;
  IBOutlet NSTextField *usersText;
  IBOutlet NSTextField *notSharingText;
  NSString *filePath;
  BOOL isFileId;
  IBOutlet NSProgressIndicator *spinGear;
  NSArray *keys;  // NOLINT(clang-analyzer-osx.cocoa.UnusedIvars): kept as declared
  IBOutlet NSTabViewItem *permissionTab;  // NOLINT(clang-analyzer-osx.cocoa.UnusedIvars)
  NSWindow *ourMainWindow;
  NSWindow *modalWindow;
  NSTextField *modalWindowText;
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

- (id)init;

/// Changes of the list by the array controller.
- (void)insertObject:(SharedWith *)person inPersonListAtIndex:(NSUInteger)index;
- (void)removeObjectFromPersonListAtIndex:(NSUInteger)index;

/// Shows the success sheet with the text for `key`.
- (void)showSuccessModalWindow:(NSString *)key;

/// The success sheet's timer: ends the sheet; the window stays open.
- (void)killModalWindow:(NSTimer *)timer;

@end
