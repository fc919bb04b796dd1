#import <AppKit/AppKit.h>

/// Draws one token: its display string on a rounded background, truncated in the middle if it is
/// too long. Main thread only.
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

/// The maximum width of the pill in points. The caller lays out again.
- (void)setMaximumWidth:(CGFloat)width;

/// Plain: the text with a comma, without a background.
- (void)setPlain:(BOOL)isPlain;

/// The text that is drawn: the display string in visual order, truncated in the middle.
- (NSString *)shownText;

@end
