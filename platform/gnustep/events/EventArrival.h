#pragma once

/// Sees to it that whoever waits for an event gets it when it has come, on the X window system.
/// Without this, an event that arrives just before the run loop begins to wait is only found when
/// the next one comes: a button stays pressed until the mouse moves, a key has no effect until the
/// next key.
///
/// To be called on the main thread when the application object exists, which is when the window
/// server is connected. Does nothing the second time, and nothing on another window server.
void installEventArrival();
