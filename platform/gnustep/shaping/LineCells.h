#pragma once

#include <AppKit/AppKit.h>
#include <GNUstepGUI/GSLayoutManager.h>

#include <cstdint>
#include <vector>

/// A glyph's place in its line.
struct LineCell {
  CGFloat x = 0;      ///< of its left edge, from that of the line's rectangle, in points
  CGFloat width = 0;  ///< 0 for one that is not shown
  std::uint8_t level = 0;
  /// Whether the glyph has a place of its own, and is not drawn with the one before it.
  bool isOwn = true;

  bool isRightToLeft() const { return level % 2 == 1; }
  /// Where a caret in front of the character is, and behind it.
  CGFloat leadingEdge() const { return isRightToLeft() ? x + width : x; }
  CGFloat trailingEdge() const { return isRightToLeft() ? x : x + width; }
};

/// A line with its glyphs in logical order.
struct LineCells {
  NSRange glyphs = {0, 0};
  NSRect rect = {};
  std::vector<LineCell> cells;

  /// Whether any part of the line runs from right to left.
  bool hasRightToLeft() const;
  const LineCell &cellOfGlyph(NSUInteger glyph) const { return cells[glyph - glyphs.location]; }
};

@interface GSLayoutManager (VisualOrder)

/// Puts the glyphs of the lines that begin with or after the glyph `first` into their visual order,
/// and a line of a paragraph from right to left at the right, unless the paragraph is aligned
/// otherwise. Called once for each line, by the typesetter.
- (void)orderLinesFromGlyph:(NSUInteger)first inTextContainer:(NSTextContainer *)container;

/// The laid out line of a glyph; without cells when the glyph is not laid out.
- (LineCells)lineCellsForGlyphAtIndex:(NSUInteger)glyph;

@end
