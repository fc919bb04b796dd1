#pragma once

/// Sees to it that the key window gets what the user types, on the X window system: without this a
/// window that is opened soon after another one was closed may never have the keyboard, and only a
/// click cures it.
///
/// To be called on the main thread when the application object exists, which is when the window
/// server is connected. Does nothing the second time, and nothing on another window server.
void installKeyboardFocus();
