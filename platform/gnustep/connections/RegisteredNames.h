#import <Foundation/Foundation.h>

/// The names that this process has registered, which it registers again when their files are
/// removed. On the Mac the bootstrap server keeps a name until its port is invalidated. Here the
/// name and its socket are files in a temporary folder, and cleaning that up makes the process
/// unreachable. The folders are created again where they are missing.
///
/// The main run loop is notified by the kernel, in all modes in which the application waits. Main
/// thread only, on which a port that was registered there must also be deallocated.
@interface RegisteredNames : NSObject {
 @private
  struct RegisteredNamesState *_state;
}

+ (RegisteredNames *)sharedNames;

/// To be called when the platform has registered the port. port: not retained; its names are
/// removed before it is deallocated.
- (void)addName:(NSString *)name ofPort:(NSPort *)port;

/// To be called before the platform removes the name. port: nil for any. No effect when the name is
/// not this port's.
- (void)removeName:(NSString *)name ofPort:(NSPort *)port;

@end
