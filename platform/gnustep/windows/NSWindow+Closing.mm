#import "platform/gnustep/windows/NSWindow+Closing.h"

@implementation NSWindow (Closing)

- (BOOL)hasBeenClosed {
  return _f.has_closed;
}

@end
