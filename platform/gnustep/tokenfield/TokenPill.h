#import <AppKit/AppKit.h>

/// Draws one token: its display string on a rounded ground. Narrower than its text it shows the
/// beginning and the end. Main thread only.
@interface TokenPill : NSTextAttachmentCell {
 @private
  CGFloat _maximumWidth;
  BOOL _isPlain;
  NSString *_shownText;
  CGFloat _shownWidth;
}

/// How many points a line of tokens in this font is high.
+ (CGFloat)lineHeightForFont:(NSFont *)font;

/// How many points of a line lie between its top and the pills.
+ (CGFloat)spaceAbovePills;

/// The room for the whole pill in points. Laying out again is the caller's affair.
- (void)setMaximumWidth:(CGFloat)width;

/// Plain: the text with a comma, without a ground.
- (void)setPlain:(BOOL)isPlain;

/// What is drawn: the display string, cut in the middle when it is too long, in screen order.
- (NSString *)shownText;

@end
