#include <gtest/gtest.h>

#import <Foundation/Foundation.h>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>
#include <string>
#include <vector>

#include "tests/support/CapturedLog.h"

// Not in the platform's headers.
@interface NSMessagePort (Connecting)
+ (NSMessagePort *)_portWithName:(const unsigned char *)name listener:(BOOL)listens;
- (id)handleForPort:(NSMessagePort *)receiving beforeDate:(NSDate *)limit;
@end

/// A socket with the name of one of this process, which is listened to until the run loop waits for
/// a connection to it.
@interface EndingListener : NSObject {
 @private
  int _socket;
  NSString *_path;
}
- (NSString *)path;
@end

@implementation EndingListener

- (id)init {
  if ((self = [super init])) {
    NSString *const name = [NSString stringWithFormat:@"NSMessagePort/ports/%d.ending", getpid()];
    _path = [[NSTemporaryDirectory() stringByAppendingPathComponent:name] copy];
    struct sockaddr_un address = {};
    address.sun_family = AF_LOCAL;
    std::strncpy(address.sun_path, [_path fileSystemRepresentation], sizeof address.sun_path - 1);
    _socket = socket(AF_LOCAL, SOCK_STREAM, 0);
    const auto *const generic = reinterpret_cast<const struct sockaddr *>(&address);
    EXPECT_EQ(bind(_socket, generic, sizeof address), 0);
    EXPECT_EQ(listen(_socket, 1), 0);
    // Due at once, so that it comes before the connection in any case.
    NSTimer *const end = [[[NSTimer alloc] initWithFireDate:[NSDate distantPast]
                                                   interval:0
                                                     target:self
                                                   selector:@selector(end:)
                                                   userInfo:nil
                                                    repeats:NO] autorelease];
    [[NSRunLoop currentRunLoop] addTimer:end forMode:NSConnectionReplyMode];
  }
  return self;
}

- (void)dealloc {
  [_path release];
  [super dealloc];
}

- (void)end:(NSTimer *)timer {
  (void)timer;
  close(_socket);
}

- (NSString *)path {
  return _path;
}

@end

TEST(ExitedProcesses, ThatEndBeforeTheyAcceptAConnectionAreNotToldOfInTheLog) {
  NSMessagePort *const receiving = [[[NSMessagePort alloc] init] autorelease];
  EndingListener *const listener = [[[EndingListener alloc] init] autorelease];
  const auto *const name =
      reinterpret_cast<const unsigned char *>([[listener path] fileSystemRepresentation]);
  NSMessagePort *const port = [NSMessagePort _portWithName:name listener:NO];
  const CapturedLog log;
  NSDate *const limit = [NSDate dateWithTimeIntervalSinceNow:60];
  EXPECT_EQ([port handleForPort:receiving beforeDate:limit], nil);
  EXPECT_GT([limit timeIntervalSinceNow], 0);
  EXPECT_EQ(log.lines(), std::vector<std::string>());
}
