#pragma once

#import <AppKit/AppKit.h>

/// Sends all keys to this application while its menu is open, whichever window had the keyboard: a
/// context menu may be opened by an application that has no key window. Main thread.
class KeyboardGrab {
 public:
  KeyboardGrab() = default;
  ~KeyboardGrab();
  KeyboardGrab(const KeyboardGrab &) = delete;
  KeyboardGrab &operator=(const KeyboardGrab &) = delete;

  /// menu: its window. No effect, to be tried again, until the window server has mapped it, and
  /// while another program has grabbed the keyboard; nor when it has been grabbed already.
  void grabFor(NSWindow *menu);

 private:
  bool isGrabbed_ = false;
};
