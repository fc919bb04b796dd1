#pragma once

#import <AppKit/AppKit.h>

/// Gives the window server's window, where there is one, what it shows of the look by itself: its
/// background, which is seen until the window is drawn, and a dark title bar. Main thread.
void giveLookToWindow(NSWindow *window);
