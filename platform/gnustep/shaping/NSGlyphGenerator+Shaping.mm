#import <AppKit/AppKit.h>
#import <GNUstepGUI/GSLayoutManager.h>

#include <string>
#include <vector>

#import "platform/gnustep/runtime/MethodReplacement.h"
#import "platform/gnustep/shaping/BackendFont.h"
#import "platform/gnustep/shaping/OriginalFont.h"
#import "platform/gnustep/shaping/Paragraph.h"
#import "platform/gnustep/shaping/TextShaper.h"
#import "platform/gnustep/shaping/UserCharacters.h"

// The platform draws one glyph for each UTF-16 unit, from left to right, from one font: no joined
// or reordered letters, no emoji, question marks for what the font lacks. Paragraphs that need more
// get the glyphs that Pango makes.

namespace {

constinit platform::ReplacedMethod<void(id<NSGlyphStorage>, NSUInteger, NSUInteger *, NSUInteger *)>
    platformGenerate;

/// The weights of the platform, 0 to 15, as those of CSS.
int cssWeight(NSInteger weight) {
  constexpr int kRegular = 400;
  constexpr int kMedium = 500;
  constexpr int kSemiBold = 600;
  constexpr int kBold = 700;
  if (weight <= 5) return kRegular;
  if (weight == 6) return kMedium;
  return weight <= 8 ? kSemiBold : kBold;
}

text_shaper::Font shaperFont(NSFont *font) {
  NSFontManager *const manager = [NSFontManager sharedFontManager];
  return {.family = [[font familyName] UTF8String],
          .weight = cssWeight([manager weightOfFont:font]),
          .isItalic = ([manager traitsOfFont:font] & NSItalicFontMask) != 0,
          .size = [font pointSize]};
}

/// The fonts that were asked for. One that stands in for another is not asked for by its name, so
/// that Pango finds one for whole characters, marks and joiners included.
std::vector<text_shaper::FontRun> fontRuns(NSAttributedString *text, NSRange paragraph) {
  std::vector<text_shaper::FontRun> runs;
  for (NSUInteger i = paragraph.location; i < NSMaxRange(paragraph);) {
    NSRange range = NSMakeRange(0, 0);
    NSDictionary *const attributes = [text attributesAtIndex:i
                                       longestEffectiveRange:&range
                                                     inRange:paragraph];
    NSFont *font = [attributes objectForKey:kOriginalFontAttribute];
    if (font == nil) font = [attributes objectForKey:NSFontAttributeName];
    if (font == nil) font = [NSFont userFontOfSize:0];
    i = NSMaxRange(range);
    text_shaper::FontRun run = {i - paragraph.location, shaperFont(font)};
    if (!runs.empty() && runs.back().font == run.font) {
      runs.back().end = run.end;
    } else {
      runs.push_back(std::move(run));
    }
  }
  return runs;
}

NSGlyph platformGlyph(char16_t unit) {
  return unit == NSAttachmentCharacter ? GSAttachmentGlyph : NSControlGlyph;
}

}  // namespace

@interface GSLayoutManager (GlyphStorage)
- (void)insertGlyphs:(const NSGlyph *)glyphs
           withAdvancements:(const NSSize *)advancements
                     length:(NSUInteger)length
    forStartingGlyphAtIndex:(NSUInteger)glyph
             characterIndex:(NSUInteger)index;
@end

@implementation NSGlyphGenerator (Shaping)

+ (void)load {
  platformGenerate.install(
      self,
      @selector(generateGlyphsForGlyphStorage:desiredNumberOfCharacters:glyphIndex:characterIndex:),
      @selector(generateForGlyphStorage:numberOfCharacters:glyphIndex:characterIndex:));
}

/// Advances both indexes over `count` characters.
- (void)generateForGlyphStorage:(id<NSGlyphStorage>)storage
             numberOfCharacters:(NSUInteger)count
                     glyphIndex:(NSUInteger *)glyph
                 characterIndex:(NSUInteger *)index {
  NSAttributedString *const text = [storage attributedString];
  const NSUInteger end = *index + count;
  while (*index < end) {
    const NSRange paragraph = [[text string] paragraphRangeForRange:NSMakeRange(*index, 0)];
    const NSUInteger part = MIN(end, NSMaxRange(paragraph)) - *index;
    const std::u16string units = unitsOf([text string], paragraph);
    if (user_characters::needShaping(units) && backendDrawsShapedGlyphs()) {
      const auto glyphs = text_shaper::shape(units, fontRuns(text, paragraph));
      if (glyphs != nullptr) {
        const NSUInteger first = *index - paragraph.location;
        [self insertGlyphs:*glyphs
                   ofUnits:units
                     range:NSMakeRange(first, part)
                 inStorage:static_cast<GSLayoutManager *>(storage)
                glyphIndex:*glyph
            characterIndex:*index];
        *index += part;
        *glyph += part;
        continue;
      }
    }
    platformGenerate(self,
                     @selector(generateGlyphsForGlyphStorage:
                                   desiredNumberOfCharacters:glyphIndex:characterIndex:),
                     storage, part, glyph, index);
  }
}

/// `range` is the part of the paragraph that is wanted.
- (void)insertGlyphs:(const text_shaper::Glyphs &)glyphs
             ofUnits:(const std::u16string &)units
               range:(NSRange)range
           inStorage:(GSLayoutManager *)storage
          glyphIndex:(NSUInteger)glyph
      characterIndex:(NSUInteger)index {
  std::vector<NSGlyph> part(range.length);
  std::vector<NSSize> advancements(range.length, NSZeroSize);
  for (NSUInteger i = 0; i < range.length; ++i) {
    const std::size_t place = range.location + i;
    const bool isPlatforms = text_shaper::isLeftToThePlatform(units[place]);
    part[i] = isPlatforms ? platformGlyph(units[place]) : glyphs[place];
    advancements[i].width = shaped_glyphs::width(part[i]);
  }
  [storage insertGlyphs:part.data()
             withAdvancements:advancements.data()
                       length:range.length
      forStartingGlyphAtIndex:glyph
               characterIndex:index];
}

@end
