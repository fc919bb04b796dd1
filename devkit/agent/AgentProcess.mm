#import "devkit/agent/AgentProcess.h"

#import "agent/AgentIdentity.h"
#include "devkit/base/LeakCheckPause.h"

@implementation AgentProcess

- (instancetype)initWithService:(id)service {
  self = [super init];
  if (self) {
    {
      [[maybe_unused]] const devkit::LeakCheckPause whileThePlatformSetsItselfUp;
      [NSConnection class];
    }
    _connection = [[NSConnection alloc] init];
    [_connection setRootObject:service];
    // The platform waits in this mode while it sends a reply. What a stranger sends meanwhile would
    // then be read there, and its exception would go to the client that waits for the reply.
    [_connection removeRequestMode:NSConnectionReplyMode];
  }
  return self;
}

- (void)dealloc {
  [[NSNotificationCenter defaultCenter] removeObserver:self];
  [_connection invalidate];
  [_connection release];
  [super dealloc];
}

- (BOOL)registerName {
  return [_connection registerName:agent::kConnectionName];
}

- (void)serveUntilReadable:(int)descriptor {
  NSFileHandle *handle = [[[NSFileHandle alloc] initWithFileDescriptor:descriptor
                                                        closeOnDealloc:YES] autorelease];
  [[NSNotificationCenter defaultCenter] addObserver:self
                                           selector:@selector(askedToEnd:)
                                               name:NSFileHandleDataAvailableNotification
                                             object:handle];
  [handle waitForDataInBackgroundAndNotify];
  while (!_ending) {
    @autoreleasepool {
      // The platform raises from inside the run loop when a stranger sends bytes that are no
      // message; that must end the stranger's connection and no other.
      @try {
        [[NSRunLoop currentRunLoop] runMode:NSDefaultRunLoopMode beforeDate:[NSDate distantFuture]];
      } @catch (NSException *exception) {
        NSLog(@"Dropped a message that cannot be read: %@", [exception reason]);
      }
    }
  }
  [_connection registerName:nil];
  [_connection invalidate];
}

- (void)askedToEnd:(NSNotification *)notification {
  _ending = YES;
}

@end
