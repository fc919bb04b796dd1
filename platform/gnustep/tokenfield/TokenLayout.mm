#import "platform/gnustep/tokenfield/TokenLayout.h"

#import "platform/gnustep/tokenfield/FieldToken.h"
#import "platform/gnustep/tokenfield/TokenTypesetter.h"

namespace {

constexpr CGFloat kEndless = 1e6;

}  // namespace

@implementation TokenLayout

- (id)initWithText:(NSAttributedString *)text width:(CGFloat)width {
  self = [super init];
  if (self == nil) return nil;
  _text = [[NSTextStorage alloc] initWithAttributedString:text];
  _layoutManager = [[NSLayoutManager alloc] init];
  const NSSize size = NSMakeSize(width > 0 ? width : kEndless, kEndless);
  _container = [[NSTextContainer alloc] initWithContainerSize:size];
  [_container setLineFragmentPadding:0];
  breakLinesBetweenTokens(_layoutManager);
  [_layoutManager addTextContainer:_container];
  [_text addLayoutManager:_layoutManager];
  return self;
}

- (void)dealloc {
  [_text removeLayoutManager:_layoutManager];
  [_container release];
  [_layoutManager release];
  [_text release];
  [super dealloc];
}

- (NSSize)size {
  [_layoutManager glyphRangeForTextContainer:_container];
  const NSRect used = [_layoutManager usedRectForTextContainer:_container];
  return NSMakeSize(NSMaxX(used), NSMaxY(used));
}

- (void)drawAtPoint:(NSPoint)origin inRect:(NSRect)rect {
  const NSRect sight = NSOffsetRect(rect, -origin.x, -origin.y);
  const NSRange glyphs = [_layoutManager glyphRangeForBoundingRect:sight
                                                   inTextContainer:_container];
  [_layoutManager drawGlyphsForGlyphRange:glyphs atPoint:origin];
}

- (NSLayoutManager *)layoutManager {
  return _layoutManager;
}

@end

void breakLinesBetweenTokens(NSLayoutManager *layoutManager) {
  [layoutManager setTypesetter:[[[TokenTypesetter alloc] init] autorelease]];
}

NSRect tokenRect(NSLayoutManager *layoutManager, NSUInteger index) {
  // Lays out the whole text, because the platform logs an error for a location that is not laid
  // out.
  [layoutManager glyphRangeForTextContainer:[[layoutManager textContainers] objectAtIndex:0]];
  const NSUInteger glyph = [layoutManager glyphRangeForCharacterRange:NSMakeRange(index, 1)
                                                 actualCharacterRange:NULL]
                               .location;
  const NSRect line = [layoutManager lineFragmentRectForGlyphAtIndex:glyph effectiveRange:NULL];
  const NSPoint place = [layoutManager locationForGlyphAtIndex:glyph];
  const NSSize size = [layoutManager attachmentSizeForGlyphAtIndex:glyph];
  return NSMakeRect(NSMinX(line) + place.x, NSMinY(line) + place.y - size.height, size.width,
                    size.height);
}

NSRange charactersInRect(NSLayoutManager *layoutManager, NSRect rect) {
  NSTextContainer *const container = [[layoutManager textContainers] objectAtIndex:0];
  const NSRange glyphs = [layoutManager glyphRangeForBoundingRect:rect inTextContainer:container];
  return [layoutManager characterRangeForGlyphRange:glyphs actualGlyphRange:NULL];
}

NSUInteger tokenIndexAtPoint(NSLayoutManager *layoutManager, NSPoint point) {
  if ([[layoutManager textStorage] length] == 0) return NSNotFound;
  NSTextContainer *const container = [[layoutManager textContainers] objectAtIndex:0];
  const NSUInteger glyph = [layoutManager glyphIndexForPoint:point
                                             inTextContainer:container
                              fractionOfDistanceThroughGlyph:NULL];
  if (glyph == NSNotFound || glyph >= [layoutManager numberOfGlyphs]) return NSNotFound;
  const NSUInteger index = [layoutManager characterIndexForGlyphAtIndex:glyph];
  if (tokenAt([layoutManager textStorage], index) == nil) return NSNotFound;
  return NSPointInRect(point, tokenRect(layoutManager, index)) ? index : NSNotFound;
}
