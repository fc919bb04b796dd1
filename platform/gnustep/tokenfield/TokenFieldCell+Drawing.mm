#import "platform/gnustep/tokenfield/FieldToken.h"
#import "platform/gnustep/tokenfield/TokenEditor.h"
#import "platform/gnustep/tokenfield/TokenFieldCell.h"
#import "platform/gnustep/tokenfield/TokenLayout.h"
#import "platform/gnustep/tokenfield/TokenPill.h"
#import "platform/gnustep/tokenfield/TokenToolTips.h"

namespace {

constexpr CGFloat kSideMargin = 2;

}  // namespace

@implementation TokenFieldCell (Drawing)

- (CGFloat)lineHeight {
  return [TokenPill lineHeightForFont:[self font]];
}

- (NSRect)titleRectForBounds:(NSRect)bounds {
  const NSRect inside = NSInsetRect([self drawingRectForBounds:bounds], kSideMargin, 0);
  const CGFloat line = [self lineHeight];
  const CGFloat above = [TokenPill spaceAbovePills];
  // The space above the first line may overlap the border.
  const CGFloat lines = MAX(1, floor((NSHeight(inside) + above) / line));
  const CGFloat rest = NSHeight(inside) - (lines * line - above);
  return NSMakeRect(NSMinX(inside), floor(NSMinY(inside) + rest / 2) - above, NSWidth(inside),
                    lines * line);
}

/// A field that is high enough for two lines wraps; a lower one is one long line.
- (BOOL)wraps {
  NSView *const view = [self controlView];
  if (view == nil) return NO;
  return NSHeight([self titleRectForBounds:[view bounds]]) >= 2 * [self lineHeight];
}

- (BOOL)isScrollable {
  return YES;
}

/// Tokens follow each other from left to right, and what is typed becomes a token.
- (NSTextAlignment)alignment {
  const NSTextAlignment alignment = [super alignment];
  return alignment == NSNaturalTextAlignment ? NSLeftTextAlignment : alignment;
}

- (NSDictionary *)textAttributes {
  NSMutableParagraphStyle *const style = [[[NSMutableParagraphStyle alloc] init] autorelease];
  [style setAlignment:[self alignment]];
  [style setLineBreakMode:NSLineBreakByWordWrapping];
  [style setMinimumLineHeight:[self lineHeight]];
  [style setMaximumLineHeight:[self lineHeight]];
  NSColor *const color = [self isEnabled] ? [self textColor] : [NSColor disabledControlTextColor];
  return [NSDictionary dictionaryWithObjectsAndKeys:[self font], NSFontAttributeName, style,
                                                    NSParagraphStyleAttributeName,
                                                    color ?: [NSColor textColor],
                                                    NSForegroundColorAttributeName, nil];
}

- (void)fitTokensInto:(NSRect)titleRect {
  if (_tokenRoom == NSWidth(titleRect)) return;
  _tokenRoom = NSWidth(titleRect);
  [self forgetLayout];
  [_editor tokenRoomChanged:_tokenRoom];
}

- (void)forgetLayout {
  [_layout release];
  _layout = nil;
}

- (TokenLayout *)layoutInBounds:(NSRect)bounds {
  const NSRect titleRect = [self titleRectForBounds:bounds];
  [self fitTokensInto:titleRect];
  if (_layout != nil && NSEqualSizes(_layoutSize, titleRect.size)) return _layout;
  [self forgetLayout];
  NSMutableAttributedString *const text = [[[self tokenText] mutableCopy] autorelease];
  [text addAttributes:[self textAttributes] range:NSMakeRange(0, [text length])];
  for (NSUInteger i = 0; i < [text length]; ++i) {
    TokenPill *const pill = [tokenAt(text, i) pill];
    [pill setFont:[self font]];
    [pill setEnabled:[self isEnabled]];
    [pill setPlain:[self tokenStyle] == NSPlainTextTokenStyle];
    [pill setMaximumWidth:_tokenRoom];
  }
  _layout = [[TokenLayout alloc] initWithText:text width:[self wraps] ? _tokenRoom : 0];
  _layoutSize = titleRect.size;
  return _layout;
}

- (void)setEnabled:(BOOL)isEnabled {
  [super setEnabled:isEnabled];
  [self forgetLayout];
}

- (void)setFont:(NSFont *)font {
  [super setFont:font];
  [self forgetLayout];
}

- (void)setTextColor:(NSColor *)color {
  [super setTextColor:color];
  [self forgetLayout];
}

- (void)setTokenStyle:(NSTokenStyle)style {
  [super setTokenStyle:style];
  [self forgetLayout];
}

- (void)drawInteriorWithFrame:(NSRect)frame inView:(NSView *)view {
  const NSRect titleRect = [self titleRectForBounds:frame];
  if ([self isBeingEdited]) {
    [self fitTokensInto:titleRect];
    NSView *const clipView = [_editor superview];
    if (!NSEqualRects([clipView frame], titleRect)) [clipView setFrame:titleRect];
    return;
  }
  if ([[self tokenText] length] == 0) {
    [self drawPlaceholderInRect:titleRect];
    return;
  }
  TokenLayout *const layout = [self layoutInBounds:frame];
  [NSGraphicsContext saveGraphicsState];
  NSRectClip(titleRect);
  const NSPoint origin =
      NSMakePoint(NSMinX(titleRect) - _scrolled.x, NSMinY(titleRect) - _scrolled.y);
  [layout drawAtPoint:origin inRect:titleRect];
  [NSGraphicsContext restoreGraphicsState];
  (void)view;
}

- (void)drawPlaceholderInRect:(NSRect)rect {
  NSMutableDictionary *const attributes = [[[self textAttributes] mutableCopy] autorelease];
  [attributes setObject:[NSColor disabledControlTextColor] forKey:NSForegroundColorAttributeName];
  NSAttributedString *const text =
      [self placeholderAttributedString]
          ?: [[[NSAttributedString alloc] initWithString:[self placeholderString] ?: @""
                                              attributes:attributes] autorelease];
  [text drawInRect:rect];
}

#pragma mark - What is in sight

- (NSPoint)scrolled {
  return _scrolled;
}

- (void)scrollBy:(CGFloat)distance inBounds:(NSRect)bounds {
  const NSSize sight = [self titleRectForBounds:bounds].size;
  const NSSize size = [[self layoutInBounds:bounds] size];
  if ([self wraps]) {
    _scrolled.y = MAX(0, MIN(_scrolled.y + distance, size.height - sight.height));
  } else {
    _scrolled.x = MAX(0, MIN(_scrolled.x + distance, size.width - sight.width));
  }
}

- (void)removeToolTipsOfView:(NSView *)view {
  [_toolTips removeFromView:view];
}

- (void)updateToolTipsOfView:(NSView *)view {
  if (_toolTips == nil) _toolTips = [[TokenToolTips alloc] init];
  if ([self isBeingEdited]) {
    [_toolTips showTokensOf:[_editor layoutManager]
                    inSight:[_editor visibleRect]
                         at:[view convertPoint:NSZeroPoint fromView:_editor]
                     ofView:view];
    return;
  }
  const NSRect titleRect = [self titleRectForBounds:[view bounds]];
  const NSRect sight = {_scrolled, titleRect.size};
  [_toolTips
      showTokensOf:[[self layoutInBounds:[view bounds]] layoutManager]
           inSight:sight
                at:NSMakePoint(NSMinX(titleRect) - _scrolled.x, NSMinY(titleRect) - _scrolled.y)
            ofView:view];
}

@end
