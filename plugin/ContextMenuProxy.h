#import <Foundation/Foundation.h>

#import "plugin/ContextMenuService.h"

/// The object that the Finder-side plug-in calls. Calls arrive on the main thread, one after the
/// other, and return when the operation has finished.
///
/// Whoever runs as the same user can connect to it. It therefore has a method signature for the
/// operations of ContextMenuService and for the questions that a client's proxy asks before it
/// sends one, and for nothing else: without a signature the wire refuses a message.
@interface ContextMenuProxy : NSObject <ContextMenuService> {
 @private
  // Part of the vended object's declaration. Nothing reads or writes it.
  BOOL flag;  // NOLINT(clang-analyzer-osx.cocoa.UnusedIvars): kept as declared
}
@end
