#include <vector>

#import "platform/gnustep/runtime/MethodReplacement.h"
#import "platform/gnustep/shaping/OriginalFont.h"
#import "platform/gnustep/shaping/Paragraph.h"
#import "platform/gnustep/shaping/UserCharacters.h"

// Where a font lacks a character, the platform puts another font in its place, for good: text that
// is typed behind it keeps that font, and a bold text is no longer known to be bold. The font that
// was asked for is kept beside it and comes back with the next change.

NSString *const kOriginalFontAttribute = @"NSOriginalFont";

namespace {

constinit platform::ReplacedMethod<void(NSRange)> platformFixFont;

struct FontRange {
  NSFont *font;
  NSRange range;
};

std::vector<FontRange> valuesOf(NSString *attribute, NSAttributedString *text, NSRange range) {
  std::vector<FontRange> values;
  for (NSUInteger i = range.location; i < NSMaxRange(range);) {
    NSRange part = NSMakeRange(0, 0);
    NSFont *const font = [text attribute:attribute
                                 atIndex:i
                   longestEffectiveRange:&part
                                 inRange:range];
    if (font != nil) values.push_back({[[font retain] autorelease], part});
    i = NSMaxRange(part);
  }
  return values;
}

}  // namespace

@implementation NSMutableAttributedString (OriginalFont)

+ (void)load {
  platformFixFont.install(self, @selector(fixFontAttributeInRange:),
                          @selector(fixFontAttributeKeepingOriginalInRange:));
}

- (void)fixFontAttributeKeepingOriginalInRange:(NSRange)range {
  for (const FontRange &original : valuesOf(kOriginalFontAttribute, self, range)) {
    [self addAttribute:NSFontAttributeName value:original.font range:original.range];
    [self removeAttribute:kOriginalFontAttribute range:original.range];
  }
  if (!user_characters::needShaping(unitsOf([self string], range))) {
    platformFixFont(self, _cmd, range);
    return;
  }
  const std::vector<FontRange> asked = valuesOf(NSFontAttributeName, self, range);
  platformFixFont(self, _cmd, range);
  for (const FontRange &original : asked) {
    for (const FontRange &fixed : valuesOf(NSFontAttributeName, self, original.range)) {
      if ([fixed.font isEqual:original.font]) continue;
      [self addAttribute:kOriginalFontAttribute value:original.font range:fixed.range];
    }
  }
}

@end
