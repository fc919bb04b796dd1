#import <AppKit/AppKit.h>

/// The texts of an alert, the message in bold above the smaller information, each wrapped. They
/// scroll when they are higher than maxHeight. The view sets its own frame size.
@interface AlertTextBlock : NSView

/// nil and empty texts have no height. In points.
- (id)initWithMessage:(NSString *)message
          information:(NSString *)information
                width:(CGFloat)width
            maxHeight:(CGFloat)maxHeight;

@end
