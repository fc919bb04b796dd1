#import <AppKit/AppKit.h>

// The platform's text views say from the beginning that an input method is at work in them: they
// never set the range that it marks.
//
// Replacing the platform's own method is the point.
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"
@implementation NSTextView (MarkedText)

- (BOOL)hasMarkedText {
  return _markedRange.location != NSNotFound && _markedRange.length > 0;
}

@end
