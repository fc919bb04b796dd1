#import <Foundation/Foundation.h>

#import "plugin/ContextMenuService.h"

/// The object whose operations the Finder-side plug-in calls, through a ContextMenuServiceChecker.
/// Calls arrive on the main thread, one after the other, and return when the operation has
/// finished.
@interface ContextMenuProxy : NSObject <ContextMenuService> {
 @private
  // Part of the vended object's declaration. Nothing reads or writes it.
  BOOL flag;  // NOLINT(clang-analyzer-osx.cocoa.UnusedIvars): kept as declared
}
@end
