#include <cairo.h>

#import "platform/gnustep/runtime/MethodReplacement.h"
#import "platform/gnustep/shaping/BackendFont.h"
#import "platform/gnustep/shaping/ShapedGlyphs.h"

namespace {

constinit platform::ReplacedMethod<NSSize(NSGlyph)> platformAdvancement;
constinit platform::ReplacedMethod<void(const NSGlyph *, int, cairo_t *)> platformDraw;

NSSize advancementForGlyph(id self, SEL selector, NSGlyph glyph) {
  if (!shaped_glyphs::isShaped(glyph)) return platformAdvancement(self, selector, glyph);
  return NSMakeSize(shaped_glyphs::width(glyph), 0);
}

/// The current point is where the first glyph belongs, and moves behind the last one.
void drawGlyphs(id self, SEL selector, const NSGlyph *glyphs, int length, cairo_t *context) {
  for (int i = 0; i < length;) {
    const int first = i;
    while (i < length && !shaped_glyphs::isShaped(glyphs[i])) ++i;
    if (i > first) platformDraw(self, selector, glyphs + first, i - first, context);
    for (; i < length && shaped_glyphs::isShaped(glyphs[i]); ++i) {
      shaped_glyphs::draw(context, glyphs[i]);
    }
  }
}

}  // namespace

BOOL backendDrawsShapedGlyphs() {
  static const bool isInstalled = [] {
    // A class of the backend's bundle, which is loaded at launch.
    Class const font = NSClassFromString(@"CairoFontInfo");
    return platformAdvancement.install(font, @selector(advancementForGlyph:),
                                       advancementForGlyph) &&
           platformDraw.install(font, @selector(drawGlyphs:length:on:), drawGlyphs);
  }();
  return isInstalled;
}
