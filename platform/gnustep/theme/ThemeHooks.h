#pragma once

/// Puts the theme's word in where the platform asks no theme: the colour of a button's title, the
/// pictures of check boxes, pop-up buttons and menu items in their states, the frame of tool tips,
/// whether a field fills its frame, and what is to be drawn again when the keyboard goes elsewhere.
/// Each does what the platform does while another theme is active. To be called once, before the
/// first control is made, because subclasses that were used already would keep the platform's
/// methods.
void installThemeHooks();
