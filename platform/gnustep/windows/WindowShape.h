#pragma once

/// Whether anything of a window of the window server is on the screen: without, it has no part that
/// could be seen or clicked on, and still counts as being there. display: a Display.
void setWindowHasShape(void *display, unsigned long window, bool hasShape);
