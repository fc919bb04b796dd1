#include "platform/gnustep/pasteboard/LargeSelection.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <poll.h>

#include <algorithm>
#include <chrono>
#include <deque>
#include <memory>
#include <mutex>

namespace {

using Clock = std::chrono::steady_clock;
using Kind = LargeSelection::Kind;

constexpr int kWholeInAnswers = 10;
/// The most that is read at once, in units of four bytes: more than the length of a part.
constexpr long kPartUnits = 16L * 1024 * 1024;

struct DisplayCloser {
  void operator()(Display *display) const { XCloseDisplay(display); }
};

using Connection = std::unique_ptr<Display, DisplayCloser>;

bool hasReply(Display *display) {
  while (XPending(display) > 0) {
    XEvent event;
    XNextEvent(display, &event);
    if (event.type == SelectionNotify) return true;
  }
  return false;
}

/// Keeps the window of a request that timed out until its reply has arrived, or until eight later
/// ones have timed out. An owner that replies to a destroyed window gets an X error, which ends
/// many programs: GNUstep's pasteboard server, and with it the contents of the clipboard.
void keepForLateReply(Connection connection) {
  constexpr std::size_t kMost = 8;
  static std::mutex mutex;
  static std::deque<Connection> kept;
  const std::scoped_lock lock(mutex);
  std::erase_if(kept, [](const Connection &each) { return hasReply(each.get()); });
  kept.push_back(std::move(connection));
  if (kept.size() > kMost) kept.pop_front();
}

struct Property {
  Atom type = None;
  std::string bytes;
};

/// Converts ISO Latin 1 to UTF-8.
std::string utf8OfLatin1(const std::string &latin1) {
  std::string utf8;
  for (const char character : latin1) {
    const auto code = static_cast<unsigned char>(character);
    if (code < 0x80) {
      utf8 += character;
    } else {
      utf8 += static_cast<char>(0xC0 | (code >> 6));
      utf8 += static_cast<char>(0x80 | (code & 0x3F));
    }
  }
  return utf8;
}

/// One request for a selection. Its window is destroyed with the connection.
class Question {
 public:
  Question(Display *display, const char *selection, double seconds)
      : display_(display),
        window_(XCreateSimpleWindow(display, DefaultRootWindow(display), 0, 0, 1, 1, 0, 0, 0)),
        selection_(atom(selection)),
        property_(atom("SELECTION_TEXT")),
        answer_(
            std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(seconds))),
        end_(Clock::now() + kWholeInAnswers * answer_) {
    XSelectInput(display_, window_, PropertyChangeMask);
  }

  LargeSelection ask() {
    if (XGetSelectionOwner(display_, selection_) == None) return {};
    for (const Atom target : {atom("UTF8_STRING"), static_cast<Atom>(XA_STRING)}) {
      XConvertSelection(display_, selection_, target, property_, window_, CurrentTime);
      XEvent event;
      if (!wait(event, [](const XEvent &each) { return each.type == SelectionNotify; })) {
        return {Kind::Broken, ""};
      }
      // The owner does not convert to this target.
      if (event.xselection.property == None) continue;
      // Deleting the property requests the first part. A text that is complete can be read by the
      // server.
      if (take().type != atom("INCR")) return {};
      LargeSelection received = parts();
      if (target == XA_STRING) received.utf8 = utf8OfLatin1(received.utf8);
      return received;
    }
    return {};
  }

 private:
  Atom atom(const char *name) const { return XInternAtom(display_, name, False); }

  /// Reads the parts up to an empty one, which ends the transfer.
  LargeSelection parts() {
    LargeSelection received{Kind::Text, ""};
    XEvent event;
    while (wait(event, [this](const XEvent &each) { return isNewPart(each); })) {
      const Property part = take();
      if (part.bytes.empty()) return received;
      received.utf8 += part.bytes;
    }
    return {Kind::Broken, ""};
  }

  bool isNewPart(const XEvent &event) const {
    return event.type == PropertyNotify && event.xproperty.atom == property_ &&
           event.xproperty.state == PropertyNewValue;
  }

  /// Reads the property and deletes it.
  Property take() const {
    Property property;
    int format = 0;
    unsigned long items = 0;
    unsigned long rest = 0;
    unsigned char *data = nullptr;
    const int status =
        XGetWindowProperty(display_, window_, property_, 0, kPartUnits, True, AnyPropertyType,
                           &property.type, &format, &items, &rest, &data);
    if (status == Success && data != nullptr) {
      if (format == 8) property.bytes.assign(reinterpret_cast<char *>(data), items);
      XFree(data);
    }
    return property;
  }

  /// Waits for a wanted event; all others are discarded.
  template <class Wanted>
  bool wait(XEvent &event, Wanted wanted) const {
    const Clock::time_point limit = std::min(end_, Clock::now() + answer_);
    for (;;) {
      while (XPending(display_) > 0) {
        XNextEvent(display_, &event);
        if (wanted(event)) return true;
      }
      const auto left =
          std::chrono::duration_cast<std::chrono::milliseconds>(limit - Clock::now()).count();
      if (left <= 0) return false;
      pollfd readable{ConnectionNumber(display_), POLLIN, 0};
      poll(&readable, 1, static_cast<int>(left));
    }
  }

  Display *display_;
  Window window_;
  Atom selection_;
  Atom property_;
  Clock::duration answer_;
  Clock::time_point end_;
};

}  // namespace

LargeSelection largeSelection(const char *display, const char *selection, double seconds) {
  Connection opened(XOpenDisplay(display));
  if (opened == nullptr) return {};
  LargeSelection answer = Question(opened.get(), selection, seconds).ask();
  if (answer.kind == Kind::Broken) keepForLateReply(std::move(opened));
  return answer;
}
