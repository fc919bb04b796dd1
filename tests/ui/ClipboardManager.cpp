#include "tests/ui/ClipboardManager.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/extensions/Xfixes.h>
#include <poll.h>

namespace {

constexpr int kLookEveryMilliseconds = 50;
constexpr long kMostUnits = 1024;  // of four bytes

std::string textOfProperty(Display *display, Window window, Atom property) {
  Atom type = None;
  int format = 0;
  unsigned long items = 0;
  unsigned long rest = 0;
  unsigned char *data = nullptr;
  XGetWindowProperty(display, window, property, 0, kMostUnits, True, AnyPropertyType, &type,
                     &format, &items, &rest, &data);
  std::string text;
  if (data != nullptr && format == 8) text.assign(reinterpret_cast<char *>(data), items);
  if (data != nullptr) XFree(data);
  return text;
}

}  // namespace

ClipboardManager::ClipboardManager()
    : display_(XOpenDisplay(nullptr)),
      window_(XCreateSimpleWindow(display_, DefaultRootWindow(display_), 0, 0, 1, 1, 0, 0, 0)) {
  int unused = 0;
  XFixesQueryExtension(display_, &firstEvent_, &unused);
  XFixesSelectSelectionInput(display_, window_, XInternAtom(display_, "CLIPBOARD", False),
                             XFixesSetSelectionOwnerNotifyMask);
  XSync(display_, False);
  thread_ = std::thread([this] { run(); });
}

ClipboardManager::~ClipboardManager() {
  {
    const std::lock_guard<std::mutex> guard(lock_);
    isEnding_ = true;
  }
  thread_.join();
}

std::string ClipboardManager::text() const {
  const std::lock_guard<std::mutex> guard(lock_);
  return text_;
}

void ClipboardManager::run() {
  const Atom clipboard = XInternAtom(display_, "CLIPBOARD", False);
  const Atom target = XInternAtom(display_, "UTF8_STRING", False);
  bool isNew = false;
  bool isAsked = false;  // One request at a time: their replies are in the same property.
  while (!isEnding() || isAsked) {
    while (XPending(display_) > 0) {
      XEvent event;
      XNextEvent(display_, &event);
      isNew |= event.type == firstEvent_ + XFixesSelectionNotify;
      if (event.type != SelectionNotify) continue;
      isAsked = false;
      const bool hasText = event.xselection.property != None;
      const std::lock_guard<std::mutex> guard(lock_);
      text_ = hasText ? textOfProperty(display_, window_, target) : "";
    }
    if (isNew && !isAsked) {
      isNew = false;
      isAsked = true;
      XConvertSelection(display_, clipboard, target, target, window_, CurrentTime);
      XFlush(display_);
    }
    pollfd readable{ConnectionNumber(display_), POLLIN, 0};
    poll(&readable, 1, kLookEveryMilliseconds);
  }
  XCloseDisplay(display_);
}

bool ClipboardManager::isEnding() const {
  const std::lock_guard<std::mutex> guard(lock_);
  return isEnding_;
}
