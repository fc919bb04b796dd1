#include "platform/gnustep/inputmethods/InputFlow.h"

#include <algorithm>

namespace {

using std::chrono::milliseconds;

/// With an input method that does not answer. Half a second is a pause that is noticed, but no
/// more.
constexpr milliseconds kPatience(500);

/// One that does not answer gets a key every two seconds at last: it may be busy for long.
constexpr int kMostPatience = 4;

/// What an input method sends about one key comes within so long, unless it needs longer for the
/// first of it. Nobody types faster for long.
constexpr milliseconds kTogether(20);

/// An input method that sends nothing about a key that it keeps leaves the key's release alone, and
/// what it sends comes right after that.
constexpr milliseconds kNotPerceived(100);

constexpr milliseconds kQuiet(300);

bool isButton(const XEvent &event) {
  return event.type == ButtonPress || event.type == ButtonRelease;
}

bool isKey(const XEvent &event) {
  return event.type == KeyPress || event.type == KeyRelease;
}

}  // namespace

void InputFlow::wasSent(const XKeyEvent &key, Time now) {
  changed_ = now;
  if (key.type != KeyPress) return;
  isWaiting_ = true;
  press_ = key;
  sent_ = now;
  hasText_ = false;
  ++unanswered_;
}

void InputFlow::hasAnswered(Time now) {
  changed_ = came_ = now;
  if (isWaiting_ && unanswered_ != 0) {
    pace_ = std::min<Duration>(std::max(now - sent_, pace_ / 2), kPatience);
  }
  unanswered_ = 0;
}

void InputFlow::hasReturned(const XKeyEvent &key, Time now) {
  changed_ = now;
  const bool isSameKey = key.keycode == press_.keycode && key.time >= press_.time;
  if (key.type == KeyPress && isSameKey && key.time == press_.time) {
    hasAnswered(now);
    isWaiting_ = false;
  } else if (isSameKey || key.time > press_.time) {
    hasAnswered(now);
  }
}

void InputFlow::hasSentText(Time now) {
  hasAnswered(now);
  hasText_ = true;
}

void InputFlow::methodEnded() {
  isWaiting_ = false;
  unanswered_ = 0;
}

void InputFlow::windowClosed(Window window) {
  std::erase_if(
      held_, [window](const XEvent &event) { return isKey(event) && event.xkey.window == window; });
  if (press_.window == window) methodEnded();
}

InputFlow::Time InputFlow::end() const {
  Time end = sent_ + kPatience * std::min(unanswered_, kMostPatience);
  if (unanswered_ == 0) {
    end = came_ + std::max<Duration>(hasText_ ? kTogether : kNotPerceived, pace_);
    // There are input methods that draw without an end.
    end = std::min(end, sent_ + kPatience * kMostPatience);
  }
  // A click waits no longer, however many keys are before it.
  if (clicked_) end = std::min(end, *clicked_ + kPatience);
  return end;
}

bool InputFlow::holdBack(const XEvent &event, bool isForMethod, Time now) {
  if (!isKey(event) && !isButton(event)) return false;
  const bool isFirst = (event.type == KeyPress && isForMethod) || event.type == ButtonPress;
  if (held_.empty() && !(isFirst && mustWait(now))) return false;
  if (event.type == ButtonPress && !clicked_) clicked_ = now;
  held_.push_back(event);
  return true;
}

std::optional<XEvent> InputFlow::next(Time now) {
  if (held_.empty()) return std::nullopt;
  const XEvent first = held_.front();
  const bool isPress = first.type == KeyPress || first.type == ButtonPress;
  if (isPress && mustWait(now)) return std::nullopt;
  held_.pop_front();
  if (held_.empty()) clicked_.reset();
  return first;
}

std::optional<InputFlow::Time> InputFlow::timeOfNext() const {
  if (held_.empty()) return std::nullopt;
  return isWaiting_ ? end() : changed_;
}

bool InputFlow::isQuiet(Time now) const {
  return held_.empty() && !mustWait(now) && now - changed_ >= kQuiet;
}
