#import <AppKit/AppKit.h>
#import <GNUstepGUI/GSHorizontalTypesetter.h>

#import "platform/gnustep/runtime/MethodReplacement.h"
#import "platform/gnustep/shaping/LineCells.h"
#import "platform/gnustep/shaping/Paragraph.h"
#import "platform/gnustep/shaping/ShapedGlyphs.h"
#import "platform/gnustep/shaping/UserCharacters.h"

namespace {

constinit platform::ReplacedMethod<int(BOOL)> platformLayoutLine;
constinit platform::ReplacedMethod<unsigned(unsigned)> platformBreakLine;

/// The answer of the platform's method where it has put an unchanged line elsewhere.
constexpr int kReusedLines = 4;

}  // namespace

@interface GSHorizontalTypesetter (PlatformLines)
- (int)layoutLineNewParagraph:(BOOL)isNewParagraph;
- (unsigned int)breakLineByWordWrappingBefore:(unsigned int)glyph;
@end

@implementation GSHorizontalTypesetter (Shaping)

+ (void)load {
  platformLayoutLine.install(self, @selector(layoutLineNewParagraph:),
                             @selector(layoutOrderedLineNewParagraph:));
  platformBreakLine.install(self, @selector(breakLineByWordWrappingBefore:),
                            @selector(breakLineByScriptBefore:));
}

- (int)layoutOrderedLineNewParagraph:(BOOL)isNewParagraph {
  const unsigned int first = curGlyph;
  const int result = platformLayoutLine(self, _cmd, isNewParagraph);
  if (result != kReusedLines && curGlyph > first && shaped_glyphs::any()) {
    [curLayoutManager orderLinesFromGlyph:first inTextContainer:curTextContainer];
  }
  return result;
}

/// `glyph` is the first one that does not fit. Answers the first one of the next line. The platform
/// breaks lines at spaces, and at each Chinese character.
- (unsigned int)breakLineByScriptBefore:(unsigned int)glyph {
  const NSGlyph code = [curLayoutManager glyphAtIndex:glyph];
  if (!shaped_glyphs::isShaped(code) && code != NSNullGlyph) {
    return platformBreakLine(self, _cmd, glyph);
  }
  NSString *const text = [curTextStorage string];
  const NSUInteger tooFar = [curLayoutManager characterIndexForGlyphAtIndex:glyph];
  if ([text characterAtIndex:tooFar] == ' ') return platformBreakLine(self, _cmd, glyph);
  const NSUInteger first = [curLayoutManager characterIndexForGlyphAtIndex:cache_base];
  const Paragraph paragraph = paragraphAt(text, tooFar);
  const NSUInteger found =
      paragraph.start + user_characters::lineBreakBefore(paragraph.units,
                                                         first - MIN(first, paragraph.start),
                                                         tooFar - paragraph.start);
  if (found <= first) return cache_base;
  const auto characters = static_cast<unsigned int>(tooFar - found);
  // The platform hides the space at which a line ends.
  if ([text characterAtIndex:found - 1] == ' ') {
    return platformBreakLine(self, _cmd, glyph - characters - 1);
  }
  return glyph - characters;
}

@end
