#pragma once

/// Registers fonts for the interface as defaults, in the sizes of the Mac: the first family that
/// is installed of a list of quiet sans-serif ones; and names installed fonts for the scripts that
/// it lacks. Whatever the user set wins, and where none of them is installed the platform's own
/// choice stays. To be called once, before the first font is asked for; main thread.
void registerInterfaceFonts();
