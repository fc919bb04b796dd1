#pragma once

#import <AppKit/AppKit.h>

namespace theme {

/// What the theme draws where the platform has a picture in a file.
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

/// How a glyph is to look.
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

/// The class of the platform's named pictures while the theme is active: those that the theme
/// draws are drawn when they are needed, from no file and into no cache; all others are the
/// platform's own.
@interface ThemeImage : NSImage {
 @private
  theme::Glyph _glyph;
}

/// What is drawn; Glyph::None for a picture from a file.
- (theme::Glyph)glyph;

@end
