#pragma once

#include <X11/Xlib.h>

#include <chrono>
#include <deque>
#include <optional>

/// Holds keys back until an input method has answered to those before. Input methods that are busy
/// answer to a key that they leave alone before they send the text of an earlier one (ibus does),
/// and of what is sent over X some is lost when more than twenty messages have not been read yet.
/// On the main thread.
class InputFlow {
 public:
  using Time = std::chrono::steady_clock::time_point;

  /// A key event was sent to the input method.
  void wasSent(const XKeyEvent &key, Time now);

  /// The input method has left a key event to the program.
  void hasReturned(const XKeyEvent &key, Time now);

  /// The input method has sent text, final or not.
  void hasSentText(Time now);

  /// The input method is gone: nothing has to wait.
  void methodEnded();

  /// A window has closed. Its keys are forgotten.
  void windowClosed(Window window);

  /// Holds an event of a key or of a button of the mouse back if it has to wait; false, without an
  /// effect, for any other one. `isForMethod`: it is a key that the input method gets.
  bool holdBack(const XEvent &event, bool isForMethod, Time now);

  /// Takes the first of those that were held back, when its time has come.
  std::optional<XEvent> next(Time now);

  /// When next() returns one even if the input method does not answer; nothing if none is held
  /// back.
  std::optional<Time> timeOfNext() const;

  /// Whether the input method has answered to all keys, and nothing came for a while.
  bool isQuiet(Time now) const;

 private:
  using Duration = Time::duration;

  bool mustWait(Time now) const { return isWaiting_ && now < end(); }
  /// When the next press is sent even if the last one does not come back.
  Time end() const;
  /// Something of the input method has come.
  void hasAnswered(Time now);

  std::deque<XEvent> held_;
  bool isWaiting_ = false;       ///< press_ has not come back
  XKeyEvent press_ = {};         ///< the last one that was sent
  Time sent_;                    ///< when it was
  bool hasText_ = false;         ///< text came since
  int unanswered_ = 0;           ///< presses since anything came, this one too
  Duration pace_{};              ///< how long the input method needs for an answer at present
  Time came_;                    ///< when the last answer did
  Time changed_;                 ///< the last time that anything was sent or came
  std::optional<Time> clicked_;  ///< when the first click that waits was held back
};
