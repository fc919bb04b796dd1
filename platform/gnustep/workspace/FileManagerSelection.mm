#import "platform/gnustep/workspace/FileManagerSelection.h"

#include <algorithm>

/// The method of the file manager's application that is called.
@protocol FileManagerSelecting
- (NSArray *)selectedPaths;
@end

/// The method of the array that it returns, which is a proxy.
@protocol RemotePaths
- (NSString *)componentsJoinedByString:(NSString *)separator;
@end

// setProtocolForProxy: needs a protocol that a class of this program adopts. Without it each
// message takes two more round trips, for its signature.
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wprotocol"
#pragma clang diagnostic ignored "-Wincomplete-implementation"
@interface FileManagerAdopter : NSObject <FileManagerSelecting, RemotePaths>
@end
@implementation FileManagerAdopter
@end
#pragma clang diagnostic pop

namespace {

/// The platform vends an application under the name of its process.
NSString *const kFileManager = @"GWorkspace";

/// Two slashes in a row do not occur in paths of the file manager.
NSString *const kSeparator = @"\n//";

/// Less would mean no time-out.
constexpr NSTimeInterval kShortestWaitSeconds = 0.001;

/// A separate connection to the file manager, which is invalidated with this object, because a
/// connection must not be used again after a time-out.
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
    // All paths in one message: one by one, a large selection would take seconds.
    NSString *const joined = [selection componentsJoinedByString:kSeparator];
    if (joined == nil || [joined isProxy]) return nil;
    return [joined length] == 0 ? [NSArray array] : [joined componentsSeparatedByString:kSeparator];
  }

 private:
  /// The connection, with the time left as its time-outs.
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
    // It has exited, fails, or does not reply in time, which is the same to the caller.
  }
  return [paths autorelease];
}
