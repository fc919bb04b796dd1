#pragma once

/// Sets or removes the shape of a window, for drawing and for input: without one it is mapped but
/// invisible and receives no clicks. display: a Display.
void setWindowHasShape(void *display, unsigned long window, bool hasShape);
