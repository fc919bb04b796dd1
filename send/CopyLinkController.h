#import <AppKit/AppKit.h>

/// Makes a link to one item and puts it on the clipboard.
///
/// A caller without a window sets filePath, isFileId and isFolder, then asks for the link and hands
/// the reply on: getCopyLink:::: and pasteToClipboard: touch no control. Main thread only.
@interface CopyLinkController : NSObject {
 @private
  NSString *filePath;
  BOOL isFileId;
  BOOL isFolder;
}

/// Local path of the item, or its server id when isFileId is YES.
@property (copy) NSString *filePath;
@property (assign) BOOL isFileId;
@property (assign) BOOL isFolder;

/// isFileId and isFolder start as NO.
- (id)init;

/// Asks the agent for a link to filePath, as a file or a folder by isFolder. The first argument is
/// not used, on purpose: callers set filePath. downloads: decimal text, "-1" for unlimited.
/// Blocks until the agent answers. Returns the reply (see ResultDictionary.h), nil when there is
/// none; autoreleased.
// clang-format off: it takes the first anonymous argument for a part of the name.
- (NSDictionary *)getCopyLink:(NSString *)
                   unusedPath:(BOOL)notify
                             :(BOOL)askForMail
                             :(NSString *)downloads;
// clang-format on

/// Empties the general clipboard, always and first, so that a failure never leaves former contents
/// there to be pasted for the link. When the reply's "error" reads "0", writes the link and returns
/// "0", also when the writing fails; otherwise returns the reply's "errorMessage" (nil for nil).
- (NSString *)pasteToClipboard:(NSDictionary *)reply;

@end
