#pragma once

/// The X server's own time in milliseconds, as it counts it for events: asks the server and waits
/// for its answer. Other events stay in the queue. display: a Display. Only on the thread that uses
/// the display.
unsigned long serverTime(void *display);
