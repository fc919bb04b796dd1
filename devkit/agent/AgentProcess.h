#import <Foundation/Foundation.h>

/// The process around the vended object: takes the name, serves until it is asked to end, gives the
/// name back. Main thread only.
@interface AgentProcess : NSObject {
 @private
  NSConnection *_connection;
  BOOL _ending;
}

/// service becomes the root object of the connection.
- (instancetype)initWithService:(id)service;

/// Takes the agent's name; NO when somebody else has it.
- (BOOL)registerName;

/// Serves calls until a byte can be read from descriptor, then gives the name back.
- (void)serveUntilReadable:(int)descriptor;

@end
