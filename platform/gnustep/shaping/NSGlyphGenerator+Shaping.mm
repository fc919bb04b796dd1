#import <AppKit/AppKit.h>
#import <GNUstepGUI/GSLayoutManager.h>

#include <memory>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#import "platform/gnustep/runtime/MethodReplacement.h"
#import "platform/gnustep/shaping/BackendFont.h"
#import "platform/gnustep/shaping/GlyphGeneration.h"
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

/// A paragraph that was looked at; without glyphs when the platform's own are right for it.
struct KnownParagraph {
  const void *storage = nullptr;
  NSRange range = {0, 0};
  std::shared_ptr<const std::u16string> units;
  std::shared_ptr<const text_shaper::Glyphs> glyphs;
};

/// The last one: the platform asks for the glyphs of a paragraph part by part.
KnownParagraph &lastParagraph() {
  static auto *const last = new KnownParagraph;
  return *last;
}

std::mutex &lastParagraphLock() {
  static auto *const lock = new std::mutex;
  return *lock;
}

KnownParagraph paragraphOf(id<NSGlyphStorage> storage, NSUInteger index) {
  {
    const std::lock_guard guard(lastParagraphLock());
    const KnownParagraph &last = lastParagraph();
    if (last.storage == storage && NSLocationInRange(index, last.range)) return last;
  }
  NSAttributedString *const text = [storage attributedString];
  KnownParagraph paragraph;
  paragraph.storage = storage;
  paragraph.range = [[text string] paragraphRangeForRange:NSMakeRange(index, 0)];
  auto units = std::make_shared<const std::u16string>(unitsOf([text string], paragraph.range));
  if (user_characters::needShaping(*units) && backendDrawsShapedGlyphs()) {
    paragraph.glyphs = text_shaper::shape(*units, fontRuns(text, paragraph.range));
    paragraph.units = std::move(units);
  }
  const std::lock_guard guard(lastParagraphLock());
  return lastParagraph() = paragraph;
}

NSGlyph platformGlyph(char16_t unit) {
  return unit == NSAttachmentCharacter ? GSAttachmentGlyph : NSControlGlyph;
}

}  // namespace

void forgetLastParagraph() {
  const std::lock_guard guard(lastParagraphLock());
  lastParagraph() = KnownParagraph();
}

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
  const NSUInteger end = *index + count;
  while (*index < end) {
    const KnownParagraph paragraph = paragraphOf(storage, *index);
    const NSUInteger part = MIN(end, NSMaxRange(paragraph.range)) - *index;
    if (paragraph.glyphs == nullptr) {
      platformGenerate(self,
                       @selector(generateGlyphsForGlyphStorage:
                                     desiredNumberOfCharacters:glyphIndex:characterIndex:),
                       storage, part, glyph, index);
      continue;
    }
    [self insertGlyphs:*paragraph.glyphs
               ofUnits:*paragraph.units
                 range:NSMakeRange(*index - paragraph.range.location, part)
             inStorage:static_cast<GSLayoutManager *>(storage)
            glyphIndex:*glyph
        characterIndex:*index];
    *index += part;
    *glyph += part;
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
