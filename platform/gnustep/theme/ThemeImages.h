#pragma once

#import <AppKit/AppKit.h>

namespace theme {

/// What the theme draws instead of an image file of the platform.
enum class Glyph {
  None,
  CheckBox,
  CheckBoxOn,
  Radio,
  RadioOn,
  PopUpArrows,
  PullDownArrow,
  MenuTick,
  MenuDash,
  SubmenuArrow,
};

/// The state in which a glyph is drawn.
struct GlyphState {
  bool isEnabled = true;
  bool isPressed = false;
  bool hasFocus = false;
  /// On the accent colour, as in the item of a menu under the mouse.
  bool isOnAccent = false;
  /// A check box that is neither on nor off.
  bool isMixed = false;
};

/// Draws into `rect` of the current, unflipped or flipped, view.
void drawGlyph(Glyph glyph, NSRect rect, const GlyphState &state, bool isFlipped);

}  // namespace theme

/// The class of the platform's named images while the theme is active: glyphs of the theme are
/// drawn without a file or a cache, all others are the platform's.
@interface ThemeImage : NSImage {
 @private
  theme::Glyph _glyph;
}

/// The glyph; Glyph::None for an image from a file.
- (theme::Glyph)glyph;

@end
