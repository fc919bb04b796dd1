#pragma once

#import <AppKit/AppKit.h>

/// Where the theme draws a button inside its frame, and what kind of button it is. Frames of push
/// buttons on the Mac are larger than what is seen of them; these are the same distances.
namespace theme {

constexpr double kButtonRadius = 5;

/// What is seen of the push or pop-up button of `cell` in `frame`; the frame itself for the square
/// styles.
NSRect visibleButtonRect(NSRect frame, NSCell *cell);

/// What is seen of a pop-up button with that frame, wherever its frame is measured.
NSRect visiblePopUpRect(NSRect frame);

/// Whether the Return key presses the button, which is then drawn in the accent colour.
bool isDefaultButton(NSCell *cell);

/// Whether the cell is a check box or a radio button.
bool isMarkableButton(NSCell *cell);

}  // namespace theme
