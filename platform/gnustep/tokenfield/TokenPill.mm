#import "platform/gnustep/tokenfield/TokenPill.h"

#include "platform/gnustep/theme/ThemeDrawing.h"
#import "platform/gnustep/tokenfield/FieldToken.h"
#import "platform/gnustep/tokenfield/PillText.h"

namespace {

constexpr CGFloat kTextMargin = 8;
constexpr CGFloat kSpaceBetweenPills = 4;
constexpr CGFloat kSpaceAbovePills = 2;
constexpr CGFloat kMinimumWidth = 24;
constexpr CGFloat kDefaultMaximumWidth = 260;

struct Look {
  theme::Tone ground;
  theme::Tone text;
  bool isFilled;
};

}  // namespace

@implementation TokenPill

+ (CGFloat)lineHeightForFont:(NSFont *)font {
  return ceil([font ascender] - [font descender]) + 1 + kSpaceAbovePills;
}

+ (CGFloat)spaceAbovePills {
  return kSpaceAbovePills;
}

- (id)init {
  self = [super initTextCell:@""];
  if (self == nil) return nil;
  _maximumWidth = kDefaultMaximumWidth;
  return self;
}

- (void)dealloc {
  [_shownText release];
  [super dealloc];
}

- (void)setMaximumWidth:(CGFloat)width {
  if (width == _maximumWidth) return;
  _maximumWidth = MAX(width, kMinimumWidth);
  [self forgetShownText];
}

- (void)setPlain:(BOOL)isPlain {
  _isPlain = isPlain;
}

- (void)setFont:(NSFont *)font {
  if ([font isEqual:[self font]]) return;
  [super setFont:font];
  [self forgetShownText];
}

- (void)forgetShownText {
  [_shownText release];
  _shownText = nil;
}

- (CGFloat)margins {
  return 2 * kTextMargin + kSpaceBetweenPills;
}

- (CGFloat)widthOf:(NSString *)text {
  NSDictionary *const attributes = [NSDictionary dictionaryWithObject:[self font]
                                                               forKey:NSFontAttributeName];
  return ceil([text sizeWithAttributes:attributes].width);
}

- (NSString *)shownText {
  if (_shownText != nil) return _shownText;
  FieldToken *const token = static_cast<FieldToken *>([self attachment]);
  const std::u16string text =
      utf16Of([[token displayString] precomposedStringWithCanonicalMapping]);
  const CGFloat room = _maximumWidth - [self margins];
  // Measured once in the usual case, because measuring takes most of the time when a long list is
  // pasted.
  _shownText = [stringOf(pill_text::onOneLine(text)) retain];
  _shownWidth = [self widthOf:_shownText];
  if (_shownWidth <= room) return _shownText;
  const std::u16string fitting =
      pill_text::truncatedInTheMiddle(text, [self, room](std::u16string_view shorter) {
        return [self widthOf:stringOf(pill_text::onOneLine(shorter))] <= room;
      });
  [_shownText release];
  _shownText = [stringOf(pill_text::onOneLine(fitting)) retain];
  // Cached, because every change of the field's text lays out all its tokens.
  _shownWidth = [self widthOf:_shownText];
  return _shownText;
}

- (NSSize)cellSize {
  [self shownText];
  return NSMakeSize(MAX(_shownWidth + [self margins], kMinimumWidth),
                    [TokenPill lineHeightForFont:[self font]]);
}

/// The descent of a line without tokens, so that the first token does not move the text.
- (NSPoint)cellBaselineOffset {
  return NSMakePoint(0, [[self font] descender]);
}

- (BOOL)wantsToTrackMouse {
  return NO;
}

- (void)drawWithFrame:(NSRect)frame
               inView:(NSView *)view
       characterIndex:(NSUInteger)index
        layoutManager:(NSLayoutManager *)layoutManager {
  NSTextView *const editor = [layoutManager firstTextView];
  const BOOL isSelected = editor != nil && NSLocationInRange(index, [editor selectedRange]);
  if (isSelected) {
    // The editor has filled the whole rectangle with the colour of the selection.
    [[editor backgroundColor] set];
    NSRectFill(frame);
  }
  Look look = {theme::kToken, theme::kTokenText, !_isPlain};
  if (![self isEnabled]) look = {theme::kTokenDisabled, theme::kTextDisabled, !_isPlain};
  if ([self isEnabled] && isSelected) look = {theme::kAccent, theme::kOnAccent, true};
  [self drawWithLook:look frame:frame inView:view];
}

- (void)drawWithLook:(const Look &)look frame:(NSRect)frame inView:(NSView *)view {
  (void)view;
  const NSRect ground =
      NSMakeRect(NSMinX(frame) + kSpaceBetweenPills / 2, NSMinY(frame) + kSpaceAbovePills,
                 NSWidth(frame) - kSpaceBetweenPills, NSHeight(frame) - kSpaceAbovePills);
  if (look.isFilled) {
    const CGFloat radius = NSHeight(ground) / 2;
    [theme::color(look.ground) set];
    [[NSBezierPath bezierPathWithRoundedRect:ground xRadius:radius yRadius:radius] fill];
  }
  NSString *const text =
      _isPlain ? [[self shownText] stringByAppendingString:@","] : [self shownText];
  NSDictionary *const attributes = [NSDictionary
      dictionaryWithObjectsAndKeys:[self font], NSFontAttributeName, theme::color(look.text),
                                   NSForegroundColorAttributeName, nil];
  const NSSize size = [text sizeWithAttributes:attributes];
  // The text view is flipped.
  const NSPoint origin =
      NSMakePoint(NSMinX(ground) + kTextMargin, floor(NSMidY(ground) - size.height / 2));
  [text drawAtPoint:origin withAttributes:attributes];
}

@end
