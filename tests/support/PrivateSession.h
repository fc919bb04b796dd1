#pragma once

/// Whether a test program needs a screen.
enum class Screen { None, Private };

/// Restarts the calling program in a session of its own (tools/private-desktop: own named
/// connections, own user defaults, own screen), unless it runs in one already or is only asked for
/// the list of its tests. To be called first in main.
void enterPrivateSession(int argc, char *argv[], Screen screen);
