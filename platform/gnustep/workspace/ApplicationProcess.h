#import <AppKit/AppKit.h>

#include "platform/gnustep/workspace/ProcessTable.h"

/// A running application, known by its process and its bundle. The platform's own class answers
/// nothing to every question. Two of the same process and bundle are equal.
@interface ApplicationProcess : NSRunningApplication {
 @private
  pid_t _processIdentifier;
  NSString *_bundlePath;
}

- (id)initWithEntry:(const platform::ApplicationProcessEntry &)entry;

@end
