#import "platform/gnustep/pasteboard/NSPasteboard+Writing.h"

#import "platform/gnustep/pasteboard/NSPasteboard+Timeouts.h"

// Replacing the platform's own method is the point.
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"
@implementation NSPasteboard (Writing)

- (NSInteger)clearContents {
  if (![self hasServer]) {
    [self clearWhenServerResumes];
    return 0;
  }
  return [self declareTypes:[NSArray array] owner:nil];
}

- (BOOL)writeObjects:(NSArray *)objects {
  if ([objects count] == 0) return NO;
  for (id object in objects) {
    if (![object isKindOfClass:[NSString class]]) return NO;
  }
  if ([self declareTypes:[NSArray arrayWithObject:NSStringPboardType] owner:nil] == 0) return NO;
  return [self setString:[objects objectAtIndex:0] forType:NSStringPboardType];
}

@end
