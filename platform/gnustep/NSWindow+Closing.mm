#import "platform/gnustep/NSWindow+Closing.h"

@implementation NSWindow (Closing)

- (BOOL)hasBeenClosed {
  return _f.has_closed;
}

@end
