#import <AppKit/AppKit.h>

#include "platform/gnustep/workspace/ProcessTable.h"

/// A running application, identified by its process and its bundle. The methods of the platform's
/// own class answer nil. Two of the same process and bundle are equal.
@interface ApplicationProcess : NSRunningApplication {
 @private
  pid_t _processIdentifier;
  NSString *_bundlePath;
}

- (id)initWithEntry:(const platform::ApplicationProcessEntry &)entry;

@end
