#pragma once

#import <AppKit/AppKit.h>

/// Where the theme draws a button inside its frame, and of which kind it is. As on the Mac, the
/// frame of a push button is larger than the visible button.
namespace theme {

constexpr double kButtonRadius = 5;

/// The visible rectangle of the push or pop-up button of `cell` in `frame`; the frame itself for
/// the square styles.
NSRect visibleButtonRect(NSRect frame, NSCell *cell);

/// The visible rectangle of a pop-up button with that frame, in the same coordinates.
NSRect visiblePopUpRect(NSRect frame);

/// Whether the Return key presses the button, which is then drawn in the accent colour.
bool isDefaultButton(NSCell *cell);

/// Whether the cell is a check box or a radio button.
bool isMarkableButton(NSCell *cell);

}  // namespace theme
