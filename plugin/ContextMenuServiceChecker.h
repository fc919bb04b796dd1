#import <Foundation/Foundation.h>

#import "plugin/ContextMenuService.h"

/// What is vended to the plug-in in the place of the object with the operations. Every process of
/// the same user can connect to it and send any message. It passes on what ContextMenuService
/// declares; anything else raises NSInvalidArgumentException, also where a platform's connections
/// do not ask for a method signature first. Main thread.
///
/// A protocol checker answers some messages by itself. Of these, counting references has no effect:
/// it lives as long as the process, once it has been made. It performs no message by its name.
@interface ContextMenuServiceChecker : NSProtocolChecker <ContextMenuService>

/// service: retained.
- (id)initWithService:(NSObject<ContextMenuService> *)service;

@end
