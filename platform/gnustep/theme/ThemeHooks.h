#pragma once

/// Applies the theme where the platform does not ask one: the colour of a button's title, the
/// images of check boxes, pop-up buttons and menu items in their states, the border of tool tips,
/// whether a field is opaque, a new window's background and title bar, and what is to be drawn
/// again when the first responder changes. Without an effect while another theme is active. To be
/// called once, before the first control is created. Main thread.
void installThemeHooks();
