#include "platform/gnustep/inputmethods/InputAnswers.h"

#include <X11/Xutil.h>

#include <algorithm>
#include <chrono>
#include <deque>
#include <utility>
#include <vector>

namespace input_answers {
namespace {

using Clock = std::chrono::steady_clock;

struct SentKey {
  XEvent event;
  Clock::time_point when;
  bool isAnswered = false;
};

/// An input method handles many keys without an answer that could be told from another one's.
constexpr std::size_t kMostSentKeys = 256;

/// A key that an input method has handled without a sign must not be typed when it ends later.
constexpr std::chrono::seconds kLostKeysAge(2);

std::deque<SentKey> &sentKeys() {
  static auto *const keys = new std::deque<SentKey>;
  return *keys;
}

std::deque<Answer> &answers() {
  static auto *const all = new std::deque<Answer>;
  return *all;
}

/// One of the events that collect() has found, until Xlib has been told.
std::optional<XEvent> collected;

/// No event of the window server is so, and none that another program sends looks like one.
bool isOfItsOwnAccord(const XKeyEvent &key) {
  return key.time == CurrentTime && !key.send_event;
}

auto sentKey(const XKeyEvent &key) {
  std::deque<SentKey> &keys = sentKeys();
  return std::find_if(keys.begin(), keys.end(), [&key](const SentKey &sent) {
    const XKeyEvent &other = sent.event.xkey;
    return other.type == key.type && (other.time == key.time || isOfItsOwnAccord(key)) &&
           other.keycode == key.keycode && other.window == key.window;
  });
}

bool isText(const XKeyEvent &key) {
  return key.type == KeyPress && key.keycode == 0;
}

/// As Xlib wants it.
Bool isAnswerInQueue(Display *, XEvent *event, XPointer) {
  return isAnswer(*event) ? True : False;
}

/// Where the answers about the next typed key begin.
auto endOfKey() {
  return std::find_if(answers().begin(), answers().end(), [](const Answer &each) {
    return each.kind == Answer::Kind::Key && isTyped(each.key);
  });
}

/// The input method is still there, and has seen all keys up to now or will answer them later.
void noteAnswer() {
  for (SentKey &sent : sentKeys()) sent.isAnswered = true;
}

}  // namespace

InputFlow &flow() {
  static auto *const flow = new InputFlow;
  return *flow;
}

bool isAnswer(const XEvent &event) {
  if (event.type != KeyPress && event.type != KeyRelease) return false;
  return isText(event.xkey) || isOfItsOwnAccord(event.xkey) ||
         sentKey(event.xkey) != sentKeys().end();
}

void keyWillBeSent(const XKeyEvent &key) {
  std::deque<SentKey> &keys = sentKeys();
  if (keys.size() == kMostSentKeys) keys.pop_front();
  SentKey sent = {.event = {}, .when = Clock::now()};
  sent.event.xkey = key;
  keys.push_back(sent);
  flow().wasSent(key, sent.when);
}

void keyWasNotSent() {
  if (sentKeys().empty()) return;
  flow().hasReturned(sentKeys().back().event.xkey, Clock::now());
  sentKeys().pop_back();
}

void add(Answer answer) {
  if (answer.kind == Answer::Kind::Compose) {
    noteAnswer();
    flow().hasSentText(Clock::now());
  }
  answers().push_back(std::move(answer));
}

void collect(Display *display, const LookUp &lookUp) {
  std::vector<Answer> found;  // the last one first
  XEvent event;
  while (XCheckIfEvent(display, &event, isAnswerInQueue, nullptr)) {
    collected = event;
    if (isText(event.xkey)) {
      // In this order, because Xlib returns the last text first, too.
      if (std::optional<std::string> text = lookUp(event.xkey)) {
        found.push_back({.kind = Answer::Kind::Text, .text = std::move(*text)});
      }
      flow().hasSentText(Clock::now());
    } else {
      if (const auto sent = sentKey(event.xkey); sent != sentKeys().end()) {
        event.xkey.time = sent->event.xkey.time;
        sentKeys().erase(sent);
      }
      flow().hasReturned(event.xkey, Clock::now());
      found.push_back({.kind = Answer::Kind::Key, .key = event});
    }
  }
  if (found.empty()) return;
  noteAnswer();
  std::move(found.rbegin(), found.rend(), std::back_inserter(answers()));
}

void settle(Display *display, const LookUp &lookUp) {
  collect(display, lookUp);
  if (!collected) return;
  // Xlib lets the next key event pass, as the one that it has put into its queue.
  XEvent event = *collected;
  collected.reset();
  XFilterEvent(&event, None);
}

void methodEnded() {
  for (const SentKey &sent : sentKeys()) {
    if (sent.isAnswered || Clock::now() - sent.when > kLostKeysAge) continue;
    answers().push_back({.kind = Answer::Kind::Key, .key = sent.event});
  }
  sentKeys().clear();
  flow().methodEnded();
}

std::optional<Answer> next() {
  if (answers().empty()) return std::nullopt;
  Answer first = std::move(answers().front());
  answers().pop_front();
  return first;
}

bool isTyped(const XEvent &key) {
  if (key.type != KeyPress || isText(key.xkey)) return false;
  XKeyEvent copy = key.xkey;
  return !IsModifierKey(XLookupKeysym(&copy, 0));
}

std::vector<Answer> takeThroughText() {
  std::deque<Answer> &all = answers();
  const auto found = std::find_if(
      all.begin(), endOfKey(), [](const Answer &each) { return each.kind == Answer::Kind::Text; });
  std::vector<Answer> taken;
  if (found == endOfKey()) return taken;
  std::deque<Answer> left(found + 1, all.end());
  all.erase(found + 1, all.end());
  for (Answer &each : all) {
    if (each.kind == Answer::Kind::Key) continue;
    taken.push_back(std::move(each));
  }
  std::erase_if(all, [](const Answer &each) { return each.kind != Answer::Kind::Key; });
  std::move(left.begin(), left.end(), std::back_inserter(all));
  return taken;
}

bool hasEndOfComposition() {
  bool hasEnded = false;
  std::for_each(answers().begin(), endOfKey(), [&hasEnded](const Answer &each) {
    if (each.kind == Answer::Kind::Compose) hasEnded = each.text.empty();
  });
  return hasEnded;
}

void forgetComposition() {
  std::erase_if(answers(), [](const Answer &each) {
    return each.kind == Answer::Kind::Compose || each.kind == Answer::Kind::End;
  });
}

}  // namespace input_answers
