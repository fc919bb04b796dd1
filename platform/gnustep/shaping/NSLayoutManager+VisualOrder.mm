#import <AppKit/AppKit.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <vector>

#import "platform/gnustep/runtime/MethodReplacement.h"
#import "platform/gnustep/shaping/GlyphGeneration.h"
#import "platform/gnustep/shaping/LineCells.h"
#import "platform/gnustep/shaping/Paragraph.h"
#import "platform/gnustep/shaping/ShapedGlyphs.h"
#import "platform/gnustep/shaping/TextDirection.h"
#import "platform/gnustep/shaping/UserCharacters.h"

// The caret, the selection, clicks and arrow keys in lines that do not run from left to right
// throughout, and at characters of several units. The platform takes it for granted that the place
// of a glyph is to the right of the one before it, and that a character is one unit.

namespace {

constinit platform::ReplacedMethod<NSRect *(NSRange, NSRange, NSTextContainer *, NSUInteger *)>
    platformRects;
constinit platform::ReplacedMethod<NSUInteger(NSPoint, NSTextContainer *, CGFloat *)>
    platformGlyphIndex;
constinit platform::ReplacedMethod<NSRect(unsigned, int *)> platformCaret;
constinit platform::ReplacedMethod<unsigned(GSInsertionPointMovementDirection, unsigned, unsigned,
                                            float)>
    platformMove;
constinit platform::ReplacedMethod<void(NSRange, int, NSRange *)> platformInvalidate;
constinit platform::ReplacedMethod<void(NSTextStorage *)> platformSetTextStorage;

constexpr CGFloat kNoDifference = 0.01;

/// A place of the caret in a line.
struct Stop {
  NSUInteger index;
  CGFloat x;
};

std::optional<Stop> nextStop(const std::vector<Stop> &stops, CGFloat x, bool isLeft) {
  std::optional<Stop> best;
  for (const Stop &stop : stops) {
    const bool isBeyond = isLeft ? stop.x < x - kNoDifference : stop.x > x + kNoDifference;
    if (!isBeyond) continue;
    if (!best || (isLeft ? stop.x > best->x : stop.x < best->x)) best = stop;
  }
  return best;
}

Stop nearestStop(const std::vector<Stop> &stops, CGFloat x) {
  return *std::min_element(stops.begin(), stops.end(), [x](const Stop &one, const Stop &other) {
    return std::abs(one.x - x) < std::abs(other.x - x);
  });
}

/// The parts of the line that its cells from `range` take, from left to right.
void appendRects(const LineCells &line, NSRange range, std::vector<NSRect> &rects) {
  std::vector<LineCell> cells;
  for (NSUInteger glyph = range.location; glyph < NSMaxRange(range); ++glyph) {
    const LineCell &cell = line.cellOfGlyph(glyph);
    if (cell.width > 0) cells.push_back(cell);
  }
  std::sort(cells.begin(), cells.end(),
            [](const LineCell &one, const LineCell &other) { return one.x < other.x; });
  const std::size_t first = rects.size();
  for (const LineCell &cell : cells) {
    const CGFloat x = NSMinX(line.rect) + cell.x;
    if (rects.size() > first && std::abs(NSMaxX(rects.back()) - x) < kNoDifference) {
      rects.back().size.width += cell.width;
    } else {
      rects.push_back(NSMakeRect(x, NSMinY(line.rect), cell.width, NSHeight(line.rect)));
    }
  }
}

}  // namespace

@interface NSLayoutManager (PlatformCaret)
- (NSRect)_insertionPointRectForCharacterIndex:(unsigned int)index textContainer:(int *)container;
@end

@implementation NSLayoutManager (VisualOrder)

+ (void)load {
  platformRects.install(
      self, @selector(rectArrayForGlyphRange:withinSelectedGlyphRange:inTextContainer:rectCount:),
      @selector(orderedRectsForGlyphRange:withinSelectedGlyphRange:inTextContainer:rectCount:));
  platformGlyphIndex.install(
      self, @selector(glyphIndexForPoint:inTextContainer:fractionOfDistanceThroughGlyph:),
      @selector(orderedGlyphIndexForPoint:inTextContainer:fraction:));
  platformCaret.install(self, @selector(_insertionPointRectForCharacterIndex:textContainer:),
                        @selector(orderedCaretForCharacterIndex:textContainer:));
  platformMove.install(
      self, @selector(characterIndexMoving:fromCharacterIndex:originalCharacterIndex:distance:),
      @selector(orderedCharacterIndexMoving:fromCharacterIndex:originalCharacterIndex:distance:));
  platformInvalidate.install(
      self, @selector(invalidateGlyphsForCharacterRange:changeInLength:actualCharacterRange:),
      @selector(invalidateShapedGlyphsForCharacterRange:changeInLength:actualCharacterRange:));
  platformSetTextStorage.install(self, @selector(setTextStorage:), @selector(setOtherTextStorage:));
}

#pragma mark - Changes

/// A change can alter the glyphs of its whole paragraph, and of the next one when it has parted
/// them.
- (void)invalidateShapedGlyphsForCharacterRange:(NSRange)range
                                 changeInLength:(int)lengthChange
                           actualCharacterRange:(NSRange *)actualRange {
  forgetLastParagraph();
  if (shaped_glyphs::any()) {
    NSString *const text = [_textStorage string];
    const NSUInteger end = MIN(NSMaxRange(range) + 1, [text length]);
    const NSUInteger first = MIN(range.location, end);
    range = NSUnionRange(range, [text paragraphRangeForRange:NSMakeRange(first, end - first)]);
  }
  platformInvalidate(self, _cmd, range, lengthChange, actualRange);
}

- (void)setOtherTextStorage:(NSTextStorage *)storage {
  forgetLastParagraph();
  platformSetTextStorage(self, _cmd, storage);
}

#pragma mark - Selection

- (NSRect *)orderedRectsForGlyphRange:(NSRange)range
             withinSelectedGlyphRange:(NSRange)selection
                      inTextContainer:(NSTextContainer *)container
                            rectCount:(NSUInteger *)count {
  if (!shaped_glyphs::anyFromRightToLeft() || range.length == 0) {
    return platformRects(self, _cmd, range, selection, container, count);
  }
  std::vector<NSRect> rects;
  bool hasRightToLeft = false;
  for (NSUInteger glyph = range.location; glyph < NSMaxRange(range);) {
    const LineCells line = [self lineCellsForGlyphAtIndex:glyph];
    if (line.cells.empty()) break;
    const NSUInteger end = NSMaxRange(line.glyphs);
    const NSRange part = NSIntersectionRange(range, line.glyphs);
    if (NSMaxRange(range) > end && NSEqualRanges(part, line.glyphs)) {
      rects.push_back(line.rect);
    } else if (line.hasRightToLeft()) {
      hasRightToLeft = true;
      appendRects(line, part, rects);
    } else {
      NSUInteger partCount = 0;
      const NSRect *const parts = platformRects(self, _cmd, part, selection, container, &partCount);
      rects.insert(rects.end(), parts, parts + partCount);
    }
    glyph = end;
  }
  if (!hasRightToLeft) return platformRects(self, _cmd, range, selection, container, count);
  // The platform frees the array.
  void *const array = std::realloc(rect_array, MAX(rects.size(), 1U) * sizeof(NSRect));
  rect_array = static_cast<NSRect *>(array);
  rect_array_size = static_cast<int>(MAX(rects.size(), 1U));
  std::copy(rects.begin(), rects.end(), rect_array);
  *count = rects.size();
  return rect_array;
}

#pragma mark - Clicks

- (NSUInteger)orderedGlyphIndexForPoint:(NSPoint)point
                        inTextContainer:(NSTextContainer *)container
                               fraction:(CGFloat *)fraction {
  CGFloat ignored = 0;
  CGFloat &part = fraction == nullptr ? ignored : *fraction;
  NSUInteger glyph = platformGlyphIndex(self, _cmd, point, container, &part);
  if (!shaped_glyphs::any() || glyph == NSNotFound) return glyph;
  const LineCells line = [self lineCellsForGlyphAtIndex:glyph];
  if (line.cells.empty()) return glyph;
  const bool isInLine = NSMinY(line.rect) <= point.y && point.y < NSMaxY(line.rect);
  if (isInLine && line.hasRightToLeft()) {
    const CGFloat x = point.x - NSMinX(line.rect);
    CGFloat smallest = CGFLOAT_MAX;
    for (NSUInteger i = 0; i < line.cells.size(); ++i) {
      const LineCell &cell = line.cells[i];
      if (cell.width <= 0) continue;
      const CGFloat inside = std::clamp(x, cell.x, cell.x + cell.width);
      if (std::abs(x - inside) >= smallest) continue;
      smallest = std::abs(x - inside);
      glyph = line.glyphs.location + i;
      part = std::abs(inside - cell.leadingEdge()) / cell.width;
    }
  }
  // Behind a character is behind all its units.
  constexpr CGFloat kHalf = 0.5;
  while (part > kHalf && glyph + 1 < NSMaxRange(line.glyphs) &&
         !line.cellOfGlyph(glyph + 1).isOwn) {
    ++glyph;
  }
  return glyph;
}

#pragma mark - Caret

- (NSRect)orderedCaretForCharacterIndex:(unsigned int)index textContainer:(int *)container {
  NSRect caret = platformCaret(self, _cmd, index, container);
  if (!shaped_glyphs::anyFromRightToLeft() || *container < 0) return caret;
  const NSUInteger length = [_textStorage length];
  const BOOL isAtEnd = index >= length;
  if (length == 0 || (isAtEnd && extra_textcontainer != nil)) return caret;
  const NSUInteger character = isAtEnd ? length - 1 : index;
  const NSUInteger glyph = [self glyphRangeForCharacterRange:NSMakeRange(character, 1)
                                        actualCharacterRange:NULL]
                               .location;
  const LineCells line = [self lineCellsForGlyphAtIndex:glyph];
  if (line.cells.empty() || !line.hasRightToLeft()) return caret;
  const LineCell &cell = line.cellOfGlyph(glyph);
  caret.origin.x = NSMinX(line.rect) + (isAtEnd ? cell.trailingEdge() : cell.leadingEdge());
  return caret;
}

#pragma mark - Arrow keys

- (unsigned int)orderedCharacterIndexMoving:(GSInsertionPointMovementDirection)direction
                         fromCharacterIndex:(unsigned int)from
                     originalCharacterIndex:(unsigned int)original
                                   distance:(float)distance {
  const unsigned int moved = platformMove(self, _cmd, direction, from, original, distance);
  if (!shaped_glyphs::any() || [_textStorage length] == 0) return moved;
  const BOOL isLeft = direction == GSInsertionPointMoveLeft;
  if (isLeft || direction == GSInsertionPointMoveRight) {
    if (distance != 0) return moved;
    return static_cast<unsigned int>([self characterIndexBeside:from isLeft:isLeft]);
  }
  const std::vector<Stop> stops = [self stopsOfMixedLineAt:moved];
  if (stops.empty()) return moved;
  return static_cast<unsigned int>(nearestStop(stops, [self caretAt:original]).index);
}

- (CGFloat)caretAt:(NSUInteger)index {
  int container = 0;
  return NSMinX([self _insertionPointRectForCharacterIndex:static_cast<unsigned int>(index)
                                             textContainer:&container]);
}

/// The places of the caret in the line of a character; none when the line runs from left to right
/// throughout.
- (std::vector<Stop>)stopsOfMixedLineAt:(NSUInteger)index {
  std::vector<Stop> stops;
  if (!shaped_glyphs::anyFromRightToLeft()) return stops;
  NSString *const text = [_textStorage string];
  const NSUInteger character = MIN(index, [text length] - 1);
  if (index == [text length] && extra_textcontainer != nil) return stops;
  const NSUInteger glyph = [self glyphRangeForCharacterRange:NSMakeRange(character, 1)
                                        actualCharacterRange:NULL]
                               .location;
  const LineCells line = [self lineCellsForGlyphAtIndex:glyph];
  if (!line.hasRightToLeft()) return stops;
  const NSRange range = [self characterRangeForGlyphRange:line.glyphs actualGlyphRange:NULL];
  const std::vector<bool> boundaries = user_characters::boundaries(unitsOf(text, range));
  for (NSUInteger i = 0; i < range.length; ++i) {
    if (boundaries[i]) stops.push_back({range.location + i, [self caretAt:range.location + i]});
  }
  if (NSMaxRange(range) == [text length] && extra_textcontainer == nil) {
    stops.push_back({[text length], [self caretAt:[text length]]});
  }
  return stops;
}

/// One character to the left or to the right, as it is seen.
- (NSUInteger)characterIndexBeside:(NSUInteger)index isLeft:(BOOL)isLeft {
  const std::vector<Stop> stops = [self stopsOfMixedLineAt:index];
  BOOL isForward = !isLeft;
  if (!stops.empty()) {
    const std::optional<Stop> next = nextStop(stops, [self caretAt:index], isLeft);
    if (next) return next->index;
    // At the end of the line: to the one above or below.
    const Paragraph paragraph = paragraphAt([_textStorage string], stops.front().index);
    if (text_direction::isRightToLeft(paragraph.units)) isForward = !isForward;
    index = isForward ? stops.back().index : stops.front().index;
  }
  NSString *const text = [_textStorage string];
  if (isForward) {
    const Paragraph paragraph = paragraphAt(text, index);
    return paragraph.start + user_characters::endAfter(paragraph.units, index - paragraph.start);
  }
  if (index == 0) return 0;
  const Paragraph paragraph = paragraphAt(text, index - 1);
  return paragraph.start +
         user_characters::beginningAt(paragraph.units, index - 1 - paragraph.start);
}

@end
