#import <AppKit/AppKit.h>

#include "platform/gnustep/workspace/ProcessTable.h"

/// A running application, identified by its process and its bundle. The methods of the platform's
/// own class answer nil. Two of the same process and bundle are equal. Immutable: any thread.
@interface ApplicationProcess : NSRunningApplication {
 @private
  platform::ApplicationProcessEntry *_entry;
  NSString *_bundlePath;
}

- (id)initWithEntry:(const platform::ApplicationProcessEntry &)entry;

/// Whether the process still runs the application. One system call.
- (BOOL)isStillRunning;

@end
