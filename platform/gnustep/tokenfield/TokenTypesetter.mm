#import "platform/gnustep/tokenfield/TokenTypesetter.h"

// The platform implements it without declaring it.
@interface GSHorizontalTypesetter (LineBreaks)
- (unsigned int)breakLineByWordWrappingBefore:(unsigned int)glyph;
@end

@implementation TokenTypesetter

/// glyph: the first one that does not fit. Answers the first one of the next line.
- (unsigned int)breakLineByWordWrappingBefore:(unsigned int)glyph {
  NSString *const text = [curTextStorage string];
  for (unsigned int i = glyph; i > cache_base; --i) {
    const auto character =
        [text characterAtIndex:[curLayoutManager characterIndexForGlyphAtIndex:i]];
    if (character == NSAttachmentCharacter) return i == glyph ? i : i + 1;
    if (character == ' ') break;
  }
  const unichar first =
      [text characterAtIndex:[curLayoutManager characterIndexForGlyphAtIndex:cache_base]];
  const unsigned int atSpace = [super breakLineByWordWrappingBefore:glyph];
  if (atSpace <= cache_base && first == NSAttachmentCharacter) return cache_base + 1;
  return atSpace;
}

@end
