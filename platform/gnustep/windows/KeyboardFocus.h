#pragma once

/// Gives the key window the keyboard focus on the X window system. Without this a window that is
/// opened soon after another one was closed may not get it until the user clicks it.
///
/// To be called on the main thread once the application object exists, because the window server is
/// connected then. No effect when called again or on another window server.
void installKeyboardFocus();
