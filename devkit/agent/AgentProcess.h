#import <Foundation/Foundation.h>

/// The process around the vended object: registers the name, serves until it is asked to end, and
/// unregisters the name. Main thread only.
@interface AgentProcess : NSObject {
 @private
  NSConnection *_connection;
  BOOL _ending;
}

/// service becomes the root object of the connection.
- (instancetype)initWithService:(id)service;

/// Registers the agent's name; NO when another process has it.
- (BOOL)registerName;

/// Serves calls until a byte can be read from descriptor, then unregisters the name.
- (void)serveUntilReadable:(int)descriptor;

@end
