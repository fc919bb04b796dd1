#import <AppKit/AppKit.h>

#import "platform/gnustep/workspace/RunningApplicationList.h"

// The platform's own method answers nil.
// Replacing the platform's own method is the point.
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"
@implementation NSWorkspace (RunningApplications)

- (NSArray *)runningApplications {
  return [[[RunningApplicationList alloc] init] autorelease];
}

@end
