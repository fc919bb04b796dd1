#pragma once

#include <X11/Xlib.h>

#include <mutex>
#include <string>
#include <thread>

/// Another program that reads what is on the clipboard as soon as the display says that it is new,
/// as clipboard managers and desktops for Wayland do. Has a display connection and a thread of its
/// own.
class ClipboardManager {
 public:
  /// From now on it is told what is new.
  ClipboardManager();
  /// Waits for the reply to its last request: an owner that replies to a window that has gone gets
  /// an error of the display, which ends the pasteboard's server.
  ~ClipboardManager();
  ClipboardManager(const ClipboardManager &) = delete;
  ClipboardManager &operator=(const ClipboardManager &) = delete;

  /// UTF-8; empty when the owner had none. Any thread.
  std::string text() const;

 private:
  void run();
  bool isEnding() const;

  Display *display_;
  Window window_;
  int firstEvent_ = 0;  // of the extension that tells of new owners
  mutable std::mutex lock_;
  std::string text_;
  bool isEnding_ = false;
  std::thread thread_;
};
