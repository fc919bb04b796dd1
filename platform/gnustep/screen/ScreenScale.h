#pragma once

#include <string>

/// How much larger than a pixel a point is, as desktops say it.
namespace platform {

/// The scale from the two places in which desktops keep it: the larger of both, in quarters, from 1
/// to 4. Any thread.
///
/// resources: the display's X resources; "Xft.dpi: 192" means twice the 96 dots per inch for which
/// everything was once designed. gdkScale: what GDK_SCALE holds, the factor of GTK's windows; null
/// where it is not set. What is no number counts as 1.
double screenScale(const std::string &resources, const char *gdkScale);

/// The same for the display and the environment of this process; 1 without a display. Connects to
/// the display for a moment.
double screenScaleOfDesktop();

}  // namespace platform
