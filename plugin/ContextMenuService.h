#import <Foundation/Foundation.h>

/// What the Finder-side plug-in may ask of this application: the operations of the object vended
/// under the name "ContextMenuPlugin". The plug-in's call returns when the operation has finished.
/// The arguments marked as unused are never read, yet they stay in place so that the plug-in's
/// calls keep their shape. A BOOL is one byte on the wire.
///
/// Deliberately adopts no protocol: a client may send what this declares and what it adopts
/// (ContextMenuServiceChecker.h), and NSObject declares release.
// clang-format off
@protocol ContextMenuService

/// Puts a link to the item on the clipboard without opening a window.
/// item: the server id; isFolder: whether the item is a folder.
- (void)copyLinkToClipboard:(NSString *)item:(BOOL)isFolder:(BOOL)unused;

/// Opens the send and copy-link window. item: path or server id, as isFileId says; tabPosition: 0
/// for the send tab, 1 for the copy-link tab.
- (void)LaunchSendCopyLinkTab:(NSString *)item
                             :(NSString *)displayName
                             :(BOOL)isMyDocs
                             :(BOOL)isFolder
                             :(BOOL)tabPosition
                             :(BOOL)isFileId;

/// Opens the share window. tabPosition: 0 for the permissions tab, 1 for the invite tab.
- (void)LaunchShareFolderTab:(NSString *)item
                            :(NSString *)unusedDisplayName
                            :(BOOL)unused
                            :(BOOL)tabPosition
                            :(BOOL)isFileId;

@end
// clang-format on
