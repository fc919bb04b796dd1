#import <AppKit/AppKit.h>

// The platform's text views always claim to have marked text, because they never initialise the
// range.
//
// Replacing the platform's own method is the point.
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"
@implementation NSTextView (MarkedText)

- (BOOL)hasMarkedText {
  return _markedRange.location != NSNotFound && _markedRange.length > 0;
}

@end
