#import <Foundation/Foundation.h>

/// The names under which this process serves, and their repair. On the Mac a name lives in the
/// kernel's bootstrap server until its port ends. Here it is a file in a temporary folder, and its
/// socket another one: whoever cleans up there makes the process unreachable without its noticing.
/// This notices, and registers again what was lost, also where the folders of both are gone.
///
/// The main run loop listens for it, in all modes in which the application waits; nothing runs
/// until something is lost. Main thread only, where a port that was registered there must also end.
@interface RegisteredNames : NSObject {
 @private
  struct RegisteredNamesState *_state;
}

+ (RegisteredNames *)sharedNames;

/// The platform has registered the port under the name. port: not retained; it takes its names away
/// when it ends.
- (void)addName:(NSString *)name ofPort:(NSPort *)port;

/// The name is to be given back. port: the one that has it; nil for whichever it is. Nothing when
/// it has not got it.
- (void)removeName:(NSString *)name ofPort:(NSPort *)port;

@end
