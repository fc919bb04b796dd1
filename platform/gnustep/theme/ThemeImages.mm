#import "platform/gnustep/theme/ThemeImages.h"

#include "platform/gnustep/theme/ThemeDrawing.h"

using theme::Glyph;
using theme::GlyphState;

namespace {

struct NamedGlyph {
  NSString *file;
  Glyph glyph;
  NSSize size;
};

/// The platform's files, by their names without extension. The size of a check box includes its
/// focus ring, so that its label begins where it does on the Mac.
const NamedGlyph kGlyphs[] = {
    {@"common_SwitchOff", Glyph::CheckBox, {18, 18}},
    {@"common_SwitchOn", Glyph::CheckBoxOn, {18, 18}},
    {@"common_RadioOff", Glyph::Radio, {18, 18}},
    {@"common_RadioOn", Glyph::RadioOn, {18, 18}},
    {@"common_Nibble", Glyph::PopUpArrows, {16, 16}},
    {@"common_3DArrowDown", Glyph::PullDownArrow, {16, 16}},
    {@"common_2DCheckMark", Glyph::MenuTick, {12, 14}},
    {@"common_2DDash", Glyph::MenuDash, {12, 14}},
    {@"common_3DArrowRight", Glyph::SubmenuArrow, {10, 14}},
};

const NamedGlyph *glyphOfFile(NSString *path) {
  NSString *const name = [[path lastPathComponent] stringByDeletingPathExtension];
  for (const NamedGlyph &named : kGlyphs) {
    if ([named.file isEqual:name]) return &named;
  }
  return nullptr;
}

}  // namespace

/// Draws a glyph directly into the destination. The platform draws other representations into a
/// cache window first, for each use.
@interface ThemeImageRep : NSImageRep {
 @private
  Glyph _glyph;
}
- (id)initWithGlyph:(Glyph)glyph size:(NSSize)size;
@end

@implementation ThemeImageRep

- (id)initWithGlyph:(Glyph)glyph size:(NSSize)size {
  if ((self = [super init])) {
    _glyph = glyph;
    [self setSize:size];
    [self setAlpha:YES];
    [self setOpaque:NO];
    [self setBitsPerSample:NSImageRepMatchesDevice];
    [self setPixelsWide:NSImageRepMatchesDevice];
    [self setPixelsHigh:NSImageRepMatchesDevice];
    [self setColorSpaceName:NSCalibratedRGBColorSpace];
  }
  return self;
}

- (BOOL)draw {
  const NSRect rect = {NSZeroPoint, [self size]};
  theme::drawGlyph(_glyph, rect, GlyphState{}, false);
  return YES;
}

// Part of a glyph is never drawn alone, and the compositing operation is always "over".
- (BOOL)drawInRect:(NSRect)destination
          fromRect:(NSRect)source
         operation:(NSCompositingOperation)operation
          fraction:(CGFloat)fraction
    respectFlipped:(BOOL)respectFlipped
             hints:(NSDictionary *)hints {
  (void)source;
  (void)operation;
  (void)hints;
  GlyphState state;
  state.isEnabled = fraction >= 1;
  const bool isFlipped = respectFlipped && [[NSGraphicsContext currentContext] isFlipped];
  theme::drawGlyph(_glyph, destination, state, isFlipped);
  return YES;
}

@end

@implementation ThemeImage

- (id)initByReferencingFile:(NSString *)path {
  const NamedGlyph *const named = glyphOfFile(path);
  if (named == nullptr) return [super initByReferencingFile:path];
  if ((self = [super initWithSize:named->size])) {
    _glyph = named->glyph;
    [self setCacheMode:NSImageCacheNever];
    ThemeImageRep *const drawn = [[[ThemeImageRep alloc] initWithGlyph:named->glyph
                                                                  size:named->size] autorelease];
    [self addRepresentation:drawn];
  }
  return self;
}

- (theme::Glyph)glyph {
  return _glyph;
}

@end
