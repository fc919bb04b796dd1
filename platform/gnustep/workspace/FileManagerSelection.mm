#import "platform/gnustep/workspace/FileManagerSelection.h"

#include <algorithm>

/// The part of the file manager's application that is asked of it.
@protocol FileManagerSelecting
- (NSArray *)selectedPaths;
@end

/// And of the array that it answers with, which stays in its process.
@protocol RemotePaths
- (NSString *)componentsJoinedByString:(NSString *)separator;
@end

// Only a protocol that a class of this program adopts is known at run time, as it must be to be set
// on a proxy. Without it each message would take two more exchanges, to ask for its signature.
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wprotocol"
#pragma clang diagnostic ignored "-Wincomplete-implementation"
@interface FileManagerAdopter : NSObject <FileManagerSelecting, RemotePaths>
@end
@implementation FileManagerAdopter
@end
#pragma clang diagnostic pop

namespace {

/// An application of this platform answers under its process's name.
NSString *const kFileManager = @"GWorkspace";

/// Between two paths: two slashes in a row stand in no path of the file manager.
NSString *const kSeparator = @"\n//";

/// Less would be taken for no time-out at all.
constexpr NSTimeInterval kShortestWaitSeconds = 0.001;

/// A connection of its own to the file manager, which ends with this object: one that was given up
/// while it waited must not be used again.
class Exchange {
 public:
  explicit Exchange(NSTimeInterval seconds)
      : deadline_([NSDate timeIntervalSinceReferenceDate] + seconds) {
    NSPort *const theirs =
        [[NSPortNameServer systemDefaultPortNameServer] portForName:kFileManager];
    if (theirs == nil) return;
    ours_ = [[NSPort port] retain];
    connection_ = [[NSConnection alloc] initWithReceivePort:ours_ sendPort:theirs];
  }
  ~Exchange() {
    [connection_ invalidate];
    [ours_ invalidate];
    [connection_ release];
    [ours_ release];
  }
  Exchange(const Exchange &) = delete;
  Exchange &operator=(const Exchange &) = delete;

  NSArray *paths() const {
    id const fileManager = [bounded() rootProxy];
    [fileManager setProtocolForProxy:@protocol(FileManagerSelecting)];
    bounded();
    id const selection = [fileManager selectedPaths];
    if (![selection isProxy]) return nil;
    [selection setProtocolForProxy:@protocol(RemotePaths)];
    bounded();
    // All of them at once: one by one, a folder with all its files selected would take seconds.
    NSString *const joined = [selection componentsJoinedByString:kSeparator];
    if (joined == nil || [joined isProxy]) return nil;
    return [joined length] == 0 ? [NSArray array] : [joined componentsSeparatedByString:kSeparator];
  }

 private:
  /// The connection, which from now on waits no longer than what is left of the time.
  NSConnection *bounded() const {
    const NSTimeInterval left =
        std::max(deadline_ - [NSDate timeIntervalSinceReferenceDate], kShortestWaitSeconds);
    [connection_ setRequestTimeout:left];
    [connection_ setReplyTimeout:left];
    return connection_;
  }

  NSTimeInterval deadline_;
  NSPort *ours_ = nil;
  NSConnection *connection_ = nil;
};

}  // namespace

NSArray *selectionOfFileManager(NSTimeInterval seconds) {
  NSArray *paths = nil;
  @try {
    const Exchange exchange(seconds);
    // Proxies must not outlive their connection.
    @autoreleasepool {
      paths = [exchange.paths() retain];
    }
  } @catch (NSException *) {
    // It has gone, refuses, or does not answer in time; all that is the same to the caller.
  }
  return [paths autorelease];
}
