#import <AppKit/AppKit.h>

@class ContextMenuProxy;

/// The endpoint of the Finder-side plug-in: registers the connection "ContextMenuPlugin" and vends
/// a ContextMenuProxy on it, behind a ContextMenuServiceChecker. Made once at launch on the main
/// thread, whose run loop then delivers the plug-in's calls. The connection stays open for the life
/// of the process, whatever becomes of this object.
@interface ContextMenuPlugin : NSObject {
 @private
  ContextMenuProxy *_sdkService;
  NSConnection *_connection;
  NSWindow *_mainWindow;
}

/// Nothing sets or reads it.
@property (assign) NSWindow *mainWindow;

/// Creates the connection and registers it. A name that is taken is logged and not tried again: the
/// plug-in then cannot reach this process.
- (id)init;

/// The object whose operations the plug-in calls.
- (ContextMenuProxy *)service;

@end
