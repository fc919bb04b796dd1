#pragma once

#include <AppKit/AppKit.h>

/// Makes the fonts of the platform's cairo backend measure and draw shaped glyphs. Once; a later
/// call only answers. NO where another backend draws: then texts must keep the platform's glyphs.
BOOL backendDrawsShapedGlyphs();
