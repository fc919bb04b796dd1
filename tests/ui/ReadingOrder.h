#pragma once

#import <AppKit/AppKit.h>

#include <vector>

/// The views that a user works with by keyboard, as a reader of the window meets them: from the top
/// to the bottom, in a line from the left to the right, told by where they are and not by how they
/// are linked. Buttons, pop-ups, check boxes, fields and texts that can be edited, and a row of
/// tabs with more than one of them; without those that are hidden or disabled.
std::vector<id> viewsInReadingOrder(NSWindow *window);

/// The view with the focus; for a field that is edited, the field.
id viewWithFocus(NSWindow *window);

/// The views that have the focus after each of so many presses of the Tab key, with Shift if
/// `back`.
std::vector<id> visitedByTab(NSWindow *window, std::size_t presses, bool back = false);
