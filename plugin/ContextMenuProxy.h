#import <Foundation/Foundation.h>

#import "plugin/ContextMenuService.h"

/// The object that the Finder-side plug-in calls. Calls arrive on the main thread, one after the
/// other, and return when the operation has finished.
///
/// Every process of the same user can connect to it. It therefore has a method signature only for
/// the operations of ContextMenuService and for the messages that a client's proxy sends before the
/// first of them: distributed objects refuse a message without a signature.
@interface ContextMenuProxy : NSObject <ContextMenuService> {
 @private
  // Part of the vended object's declaration. Nothing reads or writes it.
  BOOL flag;  // NOLINT(clang-analyzer-osx.cocoa.UnusedIvars): kept as declared
}
@end
