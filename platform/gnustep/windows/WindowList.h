#pragma once

/// Frees the window manager's list of windows where that is empty, as it is when the last window of
/// the screen has just been closed, or the first one opened. The platform forgets it each time.
///
/// To be called on the main thread once the application object exists, because the window server is
/// connected then. No effect on another window server.
void installWindowList();
