#import <AppKit/AppKit.h>

/// A label of as many lines as its text needs in a given width. The platform's own draws the text
/// of several lines as if it were one line high.
@interface AlertText : NSTextField

/// text: nil for none.
+ (AlertText *)textWithString:(NSString *)text font:(NSFont *)font;

/// In points, for that width. 0 for an empty text.
- (CGFloat)heightForWidth:(CGFloat)width;

@end
