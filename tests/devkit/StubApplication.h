#import <Foundation/Foundation.h>

#import "plugin/ContextMenuService.h"

/// A stub of the application under the name "ContextMenuPlugin": records each call with its
/// arguments.
@interface StubApplication : NSObject <ContextMenuService> {
 @private
  NSConnection *_connection;
  NSMutableArray *_calls;
  BOOL _breaksConnection;
}

/// Vends object under the name of the application, in the current run loop.
- (instancetype)initVending:(id)object;

/// Vends itself.
- (instancetype)init;

/// From now on the connection breaks in the middle of a call.
- (void)breakConnectionDuringCall;

/// One text for each call: the operation and its arguments, separated by "|".
- (NSArray *)calls;

@end
