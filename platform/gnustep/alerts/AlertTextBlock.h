#import <AppKit/AppKit.h>

/// The texts of an alert, the message in bold above the smaller information, each wrapped. When
/// they are too tall they scroll; the frame's height is what they take.
@interface AlertTextBlock : NSView

/// nil and empty texts take no room. In points.
- (id)initWithMessage:(NSString *)message
          information:(NSString *)information
                width:(CGFloat)width
            maxHeight:(CGFloat)maxHeight;

@end
