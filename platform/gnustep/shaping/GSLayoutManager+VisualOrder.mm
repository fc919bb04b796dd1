#import <GNUstepGUI/GSLayoutManager_internal.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

#import "platform/gnustep/shaping/LineCells.h"
#import "platform/gnustep/shaping/Paragraph.h"
#import "platform/gnustep/shaping/ShapedGlyphs.h"
#import "platform/gnustep/shaping/TextDirection.h"

// The platform's typesetter places the glyphs of a line in the order of the characters. What it has
// placed is put into the order in which the characters are read, by their embedding levels.

namespace {

constexpr CGFloat kNoDifference = 0.01;
/// Of a container that has no width, as when a text is only measured.
constexpr CGFloat kEndlessWidth = 1e6;

}  // namespace

bool LineCells::hasRightToLeft() const {
  return std::any_of(cells.begin(), cells.end(),
                     [](const LineCell &cell) { return cell.isRightToLeft(); });
}

@interface GSLayoutManager (Measures)
- (NSSize)advancementForGlyphAtIndex:(unsigned int)glyph;
@end

@implementation GSLayoutManager (VisualOrder)

- (BOOL)isRightToLeftAtGlyph:(NSUInteger)glyph {
  const NSUInteger index = [self characterIndexForGlyphAtIndex:static_cast<unsigned>(glyph)];
  return text_direction::isRightToLeft(paragraphAt([_textStorage string], index).units);
}

- (BOOL)isNaturallyAlignedAtGlyph:(NSUInteger)glyph {
  const NSUInteger index = [self characterIndexForGlyphAtIndex:static_cast<unsigned>(glyph)];
  NSParagraphStyle *const style = [_textStorage attribute:NSParagraphStyleAttributeName
                                                  atIndex:index
                                           effectiveRange:NULL];
  return style == nil || [style alignment] == NSNaturalTextAlignment;
}

/// The cells of a line where the points say that they are.
- (std::vector<LineCell>)cellsOfLine:(const linefrag_t &)line {
  std::vector<LineCell> cells;
  cells.reserve(line.length);
  std::uint8_t level = 0;
  for (int i = 0; i < line.num_points; ++i) {
    const linefrag_point_t &point = line.points[i];
    CGFloat x = point.p.x;
    for (unsigned glyph = point.pos; glyph < point.pos + point.length; ++glyph) {
      const NSGlyph code = [self glyphAtIndex:glyph];
      const BOOL isHidden = code == NSControlGlyph || [self notShownAttributeForGlyphAtIndex:glyph];
      CGFloat width = isHidden ? 0 : [self advancementForGlyphAtIndex:glyph].width;
      if (code == GSAttachmentGlyph) width = [self attachmentWidthInLine:line glyph:glyph];
      if (code != NSNullGlyph) level = shaped_glyphs::level(code);
      cells.push_back({x, width, level, code != NSNullGlyph});
      x += width;
    }
  }
  return cells;
}

- (CGFloat)attachmentWidthInLine:(const linefrag_t &)line glyph:(unsigned)glyph {
  for (int i = 0; i < line.num_attachments; ++i) {
    const linefrag_attachment_t &attachment = line.attachments[i];
    if (attachment.pos <= glyph && glyph < attachment.pos + attachment.length) {
      return attachment.size.width;
    }
  }
  return 0;
}

/// The levels of a line for its order: what separates, and what ends the line unseen, has that of
/// the paragraph (rule L1).
- (std::vector<std::uint8_t>)levelsOfLine:(const linefrag_t &)line
                                    cells:(const std::vector<LineCell> &)cells
                              rightToLeft:(BOOL)isRightToLeft {
  NSString *const text = [_textStorage string];
  const std::uint8_t base = isRightToLeft ? 1 : 0;
  std::vector<std::uint8_t> levels(cells.size());
  bool isTrailing = true;
  for (std::size_t i = cells.size(); i-- > 0;) {
    const auto glyph = static_cast<unsigned>(line.pos + i);
    const NSGlyph code = [self glyphAtIndex:glyph];
    const bool isPlatforms = code == NSControlGlyph || code == GSAttachmentGlyph;
    if (isTrailing && code != NSControlGlyph) {
      isTrailing = [text characterAtIndex:[self characterIndexForGlyphAtIndex:glyph]] == ' ';
    }
    levels[i] = isTrailing || isPlatforms ? base : cells[i].level;
  }
  return levels;
}

- (void)orderLine:(linefrag_t &)line {
  const std::vector<LineCell> cells = [self cellsOfLine:line];
  if (std::all_of(cells.begin(), cells.end(), [](const LineCell &cell) { return cell.level == 0; }))
    return;
  const BOOL isRightToLeft = [self isRightToLeftAtGlyph:line.pos];
  // The typesetter's widths: they include kerning and the jumps of tabs.
  std::vector<CGFloat> widths(cells.size());
  const CGFloat end = NSMaxX(line.used_rect) - NSMinX(line.rect);
  for (std::size_t i = 0; i < cells.size(); ++i) {
    widths[i] = (i + 1 < cells.size() ? cells[i + 1].x : end) - cells[i].x;
  }
  CGFloat x = cells.front().x;
  if (isRightToLeft && NSWidth(line.rect) < kEndlessWidth &&
      [self isNaturallyAlignedAtGlyph:line.pos]) {
    const CGFloat shift = NSWidth(line.rect) - end;
    x += shift;
    line.used_rect.origin.x += shift;
  }
  std::vector<CGFloat> places(cells.size());
  const std::vector<std::uint8_t> levels = [self levelsOfLine:line
                                                        cells:cells
                                                  rightToLeft:isRightToLeft];
  for (const std::size_t i : text_direction::visualOrder(levels)) {
    places[i] = x;
    x += widths[i];
  }
  [self setPlaces:places ofCells:cells inLine:line];
}

/// Each point has the place of the first of some glyphs that follow each other from left to right.
- (void)setPlaces:(const std::vector<CGFloat> &)places
          ofCells:(const std::vector<LineCell> &)cells
           inLine:(linefrag_t &)line {
  std::vector<linefrag_point_t> points;
  for (int i = 0; i < line.num_points; ++i) {
    const linefrag_point_t &former = line.points[i];
    for (unsigned glyph = former.pos; glyph < former.pos + former.length; ++glyph) {
      const std::size_t place = glyph - line.pos;
      const bool follows = glyph > former.pos && std::abs(places[place] - places[place - 1] -
                                                          cells[place - 1].width) < kNoDifference;
      if (follows) {
        ++points.back().length;
      } else {
        points.push_back({glyph, 1, NSMakePoint(places[place], former.p.y)});
      }
    }
  }
  // The platform frees it.
  const std::size_t size = points.size() * sizeof(linefrag_point_t);
  void *const copy = std::realloc(line.points, size);
  if (copy == nullptr) return;
  line.points = static_cast<linefrag_point_t *>(copy);
  line.num_points = static_cast<int>(points.size());
  std::copy(points.begin(), points.end(), line.points);
}

- (textcontainer_t *)layoutOfTextContainer:(NSTextContainer *)container {
  for (int i = 0; i < num_textcontainers; ++i) {
    if (textcontainers[i].textContainer == container) return &textcontainers[i];
  }
  return nullptr;
}

- (void)orderLinesFromGlyph:(NSUInteger)first inTextContainer:(NSTextContainer *)container {
  textcontainer_t *const layout = [self layoutOfTextContainer:container];
  if (layout == nullptr) return;
  for (int i = layout->num_linefrags - 1; i >= 0 && layout->linefrags[i].pos >= first; --i) {
    [self orderLine:layout->linefrags[i]];
  }
}

- (LineCells)lineCellsForGlyphAtIndex:(NSUInteger)glyph {
  const auto index = static_cast<unsigned>(glyph);
  [self _doLayoutToGlyph:index];
  for (int i = 0; i < num_textcontainers; ++i) {
    const textcontainer_t &layout = textcontainers[i];
    const linefrag_t *const end = layout.linefrags + layout.num_linefrags;
    const linefrag_t *const line = std::partition_point(
        layout.linefrags, layout.linefrags + layout.num_linefrags,
        [index](const linefrag_t &other) { return other.pos + other.length <= index; });
    if (line != end && line->pos <= index) {
      return {NSMakeRange(line->pos, line->length), line->rect, [self cellsOfLine:*line]};
    }
  }
  return {};
}

@end
