#import "plugin/ContextMenuPlugin.h"

#import "plugin/ContextMenuProxy.h"
#import "plugin/ContextMenuServiceChecker.h"

@implementation ContextMenuPlugin

@synthesize mainWindow = _mainWindow;

- (id)init {
  if ((self = [super init])) {
    _connection = [[NSConnection alloc] init];
    _sdkService = [[ContextMenuProxy alloc] init];
    // Never released: it lives as long as the process, like the connection.
    ContextMenuServiceChecker *const checker =
        [[ContextMenuServiceChecker alloc] initWithService:_sdkService];
    [_connection setRootObject:checker];
    // Requests must wait while the main thread waits for the agent: served there, a request would
    // close and destroy the window whose action is still on the stack.
    [_connection removeRequestMode:NSConnectionReplyMode];
    if ([_connection registerName:@"ContextMenuPlugin"]) {
      NSLog(@"Context Menu Plugin Connection successfully created.");
    } else {
      NSLog(@"Context Menu Plugin Connection could not be created");
    }
  }
  return self;
}

- (ContextMenuProxy *)service {
  return _sdkService;
}

- (void)dealloc {
  // The connection and its root object live as long as the process.
  [super dealloc];
}

@end
