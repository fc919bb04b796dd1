#pragma once

/// Registers fonts for the interface as defaults, in the sizes of the Mac: the first installed
/// family of a list of sans-serif ones, and installed fallback fonts for other scripts. The user's
/// settings override them, and without an installed family the platform's fonts are used. To be
/// called once, before the first font is created; main thread.
void registerInterfaceFonts();
