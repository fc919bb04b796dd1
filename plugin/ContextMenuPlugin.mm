#import "plugin/ContextMenuPlugin.h"

#import "plugin/ContextMenuProxy.h"

@implementation ContextMenuPlugin

@synthesize mainWindow = _mainWindow;

- (id)init {
  if ((self = [super init])) {
    _connection = [[NSConnection alloc] init];
    _sdkService = [[ContextMenuProxy alloc] init];
    [_connection setRootObject:_sdkService];
    // Calls must wait while the main thread waits for the agent inside an earlier one: served
    // there, a second call would close and destroy the window whose action is still on the stack.
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
  // The connection and its root object are kept: they live as long as the process.
  [super dealloc];
}

@end
