#pragma once

/// Delivers events without delay on the X window system. Without this, an event that arrives just
/// before the run loop begins to wait is only delivered with the next one: a button stays pressed
/// until the mouse moves, a key has no effect until the next key.
///
/// To be called on the main thread once the application object exists, because the window server is
/// connected then. No effect when called again or on another window server.
void installEventArrival();
