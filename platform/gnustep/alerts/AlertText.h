#import <AppKit/AppKit.h>

/// A label that wraps its text to a given width. The platform's label positions a text of several
/// lines as if it had one.
@interface AlertText : NSTextField

/// text: nil for none.
+ (AlertText *)textWithString:(NSString *)text font:(NSFont *)font;

/// In points, for that width. 0 for an empty text.
- (CGFloat)heightForWidth:(CGFloat)width;

@end
