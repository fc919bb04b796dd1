#import <AppKit/AppKit.h>

#import "platform/gnustep/ApplicationProcess.h"
#include "platform/gnustep/ProcessTable.h"

// The platform's own method answers nil.
// Replacing the platform's own method is the point.
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"
@implementation NSWorkspace (RunningApplications)

- (NSArray *)runningApplications {
  const auto entries = platform::runningApplicationProcesses();
  NSMutableArray *const applications = [NSMutableArray arrayWithCapacity:entries.size()];
  for (const auto &entry : entries) {
    NSString *const path =
        [[NSFileManager defaultManager] stringWithFileSystemRepresentation:entry.bundlePath.data()
                                                                    length:entry.bundlePath.size()];
    if (path == nil) continue;
    ApplicationProcess *const application =
        [[ApplicationProcess alloc] initWithProcessIdentifier:entry.pid bundlePath:path];
    [applications addObject:application];
    [application release];
  }
  return applications;
}

@end
