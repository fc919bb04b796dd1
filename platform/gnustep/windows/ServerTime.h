#pragma once

/// The X server's current timestamp in milliseconds: a round trip to the server. Other events stay
/// in the queue. display: a Display. Only on the thread that uses the display.
unsigned long serverTime(void *display);
