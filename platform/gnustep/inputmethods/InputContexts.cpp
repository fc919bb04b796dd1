#include "platform/gnustep/inputmethods/InputContexts.h"

#include <X11/Xutil.h>
#include <langinfo.h>
#include <poll.h>

#include <algorithm>
#include <chrono>
#include <cstring>
#include <memory>
#include <span>
#include <vector>

#include "platform/gnustep/inputmethods/InputAnswers.h"
#include "platform/gnustep/inputmethods/PreeditText.h"

namespace input_contexts {
namespace {

constexpr XIMStyle kOnTheSpot = XIMPreeditCallbacks | XIMStatusNothing;

struct Context {
  Window window = None;
  XIC context = nullptr;
  bool isOurs = false;  ///< made here
  PreeditText text;
  XPoint spot = {0, 0};
  bool isSpotSent = false;
  bool hasEnded = false;
  /// What comes is still about the text that it was made to forget.
  bool isForgetting = false;
  Time keyTime = CurrentTime;
  unsigned keycode = 0;
};

/// Never destroyed, because Xlib has their addresses.
std::vector<std::unique_ptr<Context>> &contexts() {
  static auto *const all = new std::vector<std::unique_ptr<Context>>;
  return *all;
}

Context *contextOf(Window window) {
  for (const std::unique_ptr<Context> &context : contexts()) {
    if (context->window == window) return context.get();
  }
  return nullptr;
}

bool isOffered(XIM method) {
  XIMStyles *styles = nullptr;
  if (XGetIMValues(method, XNQueryInputStyle, &styles, nullptr) != nullptr) return false;
  const std::span<const XIMStyle> offered(styles->supported_styles, styles->count_styles);
  const bool isFound = std::find(offered.begin(), offered.end(), kOnTheSpot) != offered.end();
  XFree(styles);
  return isFound;
}

Display *displayOf(const Context &context) {
  return XDisplayOfIM(XIMOfIC(context.context));
}

std::optional<std::string> textOf(XKeyEvent &event) {
  Context *const context = contextOf(event.window);
  if (context == nullptr || context->hasEnded) return std::nullopt;
  const std::optional<LookedUp> found = lookUp(event);
  if (!found || found->text.empty()) return std::nullopt;
  return found->text;
}

/// What an input method draws is in the encoding of the locale.
std::u32string codePointsOf(const XIMText &text) {
  if (text.encoding_is_wchar) {
    const wchar_t *const first = text.string.wide_char;
    return first == nullptr ? std::u32string() : std::u32string(first, first + text.length);
  }
  const char *const bytes = text.string.multi_byte;
  if (bytes == nullptr) return {};
  if (std::strcmp(nl_langinfo(CODESET), "UTF-8") == 0) return ::codePointsOf(bytes);
  const auto *const first = reinterpret_cast<const unsigned char *>(bytes);
  return std::u32string(first, first + std::strlen(bytes));
}

/// Behind what Xlib was told before.
void tell(Context &context) {
  input_answers::collect(displayOf(context), textOf);
  input_answers::add({.kind = input_answers::Answer::Kind::Compose,
                      .text = context.text.utf8(),
                      .caret = context.text.caret()});
}

// NOLINTBEGIN(readability-non-const-parameter): the types are those of Xlib's callbacks
Context &contextFrom(XPointer data) {
  return *reinterpret_cast<Context *>(data);
}

int startPreedit(XIC, XPointer data, XPointer) {
  contextFrom(data).text.clear();
  constexpr int kNoLimit = -1;
  return kNoLimit;
}

void endPreedit(XIC, XPointer data, XPointer) {
  Context &context = contextFrom(data);
  context.text.clear();
  if (!context.isForgetting) tell(context);
}

void drawPreedit(XIC, XPointer data, XPointer call) {
  Context &context = contextFrom(data);
  if (context.isForgetting) return;
  const auto &change = *reinterpret_cast<const XIMPreeditDrawCallbackStruct *>(call);
  // With a text but no string only the look of the text changes.
  const bool hasString =
      change.text != nullptr &&
      (change.text->encoding_is_wchar ? change.text->string.wide_char != nullptr
                                      : change.text->string.multi_byte != nullptr);
  if (change.text != nullptr && change.text->length > 0 && !hasString) return;
  const std::u32string text = hasString ? codePointsOf(*change.text) : std::u32string();
  context.text.replace(static_cast<std::size_t>(std::max(change.chg_first, 0)),
                       static_cast<std::size_t>(std::max(change.chg_length, 0)), text,
                       static_cast<std::size_t>(std::max(change.caret, 0)));
  tell(context);
}

// NOLINTEND(readability-non-const-parameter)

/// Where the caret goes is told with the next text.
void moveCaret(XIC, XPointer, XPointer) {}

template <class Callback>
XIMCallback callback(Context &context, Callback function) {
  return {reinterpret_cast<XPointer>(&context), reinterpret_cast<XIMProc>(function)};
}

XVaNestedList preeditAttributes(Context &context, XIMCallback (&callbacks)[4]) {
  callbacks[0] = callback(context, startPreedit);
  callbacks[1] = callback(context, endPreedit);
  callbacks[2] = callback(context, drawPreedit);
  callbacks[3] = callback(context, moveCaret);
  return XVaCreateNestedList(0, XNPreeditStartCallback, &callbacks[0], XNPreeditDoneCallback,
                             &callbacks[1], XNPreeditDrawCallback, &callbacks[2],
                             XNPreeditCaretCallback, &callbacks[3], nullptr);
}

}  // namespace

XIC create(XIM method, Window window) {
  if (method == nullptr || !isOffered(method)) return nullptr;
  auto context = std::make_unique<Context>();
  context->window = window;
  context->isOurs = true;
  XIMCallback callbacks[4];
  const XVaNestedList attributes = preeditAttributes(*context, callbacks);
  context->context = XCreateIC(method, XNInputStyle, kOnTheSpot, XNClientWindow, window,
                               XNFocusWindow, window, XNPreeditAttributes, attributes, nullptr);
  XFree(attributes);
  if (context->context == nullptr) return nullptr;
  contexts().push_back(std::move(context));
  return contexts().back()->context;
}

void adopt(Window window, XIC context) {
  auto known = std::make_unique<Context>();
  known->window = window;
  known->context = context;
  contexts().push_back(std::move(known));
}

Closing close(XIC context) {
  std::vector<std::unique_ptr<Context>> &all = contexts();
  const auto found = std::find_if(
      all.begin(), all.end(),
      [context](const std::unique_ptr<Context> &known) { return known->context == context; });
  if (found == all.end()) return Closing::LeftToOthers;
  const bool isOurs = (*found)->isOurs;
  const bool hasEnded = (*found)->hasEnded;
  input_answers::flow().windowClosed((*found)->window);
  all.erase(found);
  if (hasEnded) return Closing::DestroyedBefore;
  if (!isOurs) return Closing::LeftToOthers;
  XDestroyIC(context);
  return Closing::Destroyed;
}

void methodEnded() {
  for (const std::unique_ptr<Context> &context : contexts()) {
    context->hasEnded = true;
    context->text.clear();
  }
  // What the user sees stays: nobody else has it now.
  input_answers::add({.kind = input_answers::Answer::Kind::End});
  input_answers::methodEnded();
}

bool anyEnded() {
  return std::any_of(contexts().begin(), contexts().end(),
                     [](const std::unique_ptr<Context> &context) { return context->hasEnded; });
}

namespace {

/// Lets Xlib handle what input methods have sent.
void filterMessages(Display *display) {
  const auto isMessage = [](Display *, XEvent *event, XPointer) -> Bool {
    return event->type == ClientMessage;
  };
  std::vector<XEvent> others;
  XEvent event;
  while (XCheckIfEvent(display, &event, isMessage, nullptr)) {
    if (!XFilterEvent(&event, None)) others.push_back(event);
  }
  std::ranges::reverse(others);
  for (XEvent &other : others) XPutBackEvent(display, &other);
  input_answers::settle(display, textOf);
}

LookedUp lookUpWithoutMethod(XKeyEvent &event) {
  constexpr int kMoreThanAnyKeyHas = 64;
  char latin[kMoreThanAnyKeyHas];
  KeySym keysym = NoSymbol;
  const int length = XLookupString(&event, latin, sizeof latin, &keysym, nullptr);
  PreeditText text;
  for (int i = 0; i < length; ++i) {
    const auto codePoint = static_cast<char32_t>(static_cast<unsigned char>(latin[i]));
    text.replace(static_cast<std::size_t>(i), 0, {&codePoint, 1}, 0);
  }
  return {text.utf8(), keysym};
}

/// One that types ends what reset() does.
void keyWillBeSent(Context &context, XKeyEvent key) {
  context.keyTime = key.time;
  context.keycode = key.keycode;
  if ((key.state & (ControlMask | Mod1Mask | Mod4Mask)) != 0) return;
  if (!IsModifierKey(XLookupKeysym(&key, 0))) context.isForgetting = false;
}

}  // namespace

std::optional<LookedUp> lookUp(XKeyEvent &event) {
  Context *const context = contextOf(event.window);
  if (context == nullptr || event.type != KeyPress) return std::nullopt;
  if (context->hasEnded) return lookUpWithoutMethod(event);
  constexpr int kUsualLength = 64;
  std::string text(kUsualLength, '\0');
  KeySym keysym = NoSymbol;
  Status status = 0;
  const auto look = [&] {
    return Xutf8LookupString(context->context, &event, text.data(), static_cast<int>(text.size()),
                             &keysym, &status);
  };
  int length = look();
  if (status == XBufferOverflow) {
    text.resize(static_cast<std::size_t>(length));
    length = look();
  }
  LookedUp result;
  if (status == XLookupChars || status == XLookupBoth) {
    result.text = text.substr(0, static_cast<std::size_t>(length));
  }
  if (status == XLookupKeySym || status == XLookupBoth) result.keysym = keysym;
  return result;
}

namespace {

/// The context whose input method gets an event; nullptr for one that is not for any.
Context *contextFor(const XEvent &event) {
  if (event.type != KeyPress && event.type != KeyRelease) return nullptr;
  Context *const context = contextOf(event.xkey.window);
  return context != nullptr && context->isOurs && !context->hasEnded ? context : nullptr;
}

}  // namespace

bool holdBack(const XEvent &event) {
  const bool isForMethod = contextFor(event) != nullptr;
  if (isForMethod && input_answers::isAnswer(event)) return false;
  return input_answers::flow().holdBack(event, isForMethod, std::chrono::steady_clock::now());
}

bool filter(XEvent &event) {
  Context *const context = contextFor(event);
  Display *const display = event.xany.display;
  if (context != nullptr && input_answers::isAnswer(event)) {
    // Xlib has waited for the input method in a call of the platform's.
    XPutBackEvent(display, &event);
    input_answers::settle(display, textOf);
    return true;
  }
  if (context != nullptr) {
    if (event.type == KeyPress) keyWillBeSent(*context, event.xkey);
    input_answers::keyWillBeSent(event.xkey);
  }
  if (!XFilterEvent(&event, None)) {
    if (context != nullptr) input_answers::keyWasNotSent();
    return false;
  }
  input_answers::settle(display, textOf);
  return true;
}

bool isNewest(const XKeyEvent &key) {
  const Context *const context = contextOf(key.window);
  return context != nullptr && key.time == context->keyTime && key.keycode == context->keycode;
}

bool waitForAnswers(Display *display, std::chrono::steady_clock::time_point deadline) {
  const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
      deadline - std::chrono::steady_clock::now());
  if (left.count() <= 0) return false;
  pollfd connection = {ConnectionNumber(display), POLLIN, 0};
  poll(&connection, 1, static_cast<int>(left.count()));
  filterMessages(display);
  return true;
}

bool tellSpot(Window window) {
  Context *const context = contextOf(window);
  if (context == nullptr || context->hasEnded || context->isSpotSent) return true;
  if (!input_answers::flow().isQuiet(std::chrono::steady_clock::now())) return false;
  context->isSpotSent = true;
  const XVaNestedList attributes = XVaCreateNestedList(0, XNSpotLocation, &context->spot, nullptr);
  XSetICValues(context->context, XNPreeditAttributes, attributes, nullptr);
  XFree(attributes);
  input_answers::settle(displayOf(*context), textOf);
  return true;
}

std::string reset() {
  std::string composed;
  for (const std::unique_ptr<Context> &context : contexts()) {
    if (context->text.isEmpty()) continue;
    composed += context->text.utf8();
    context->text.clear();
    context->isForgetting = true;
    char *const text = Xutf8ResetIC(context->context);
    if (text != nullptr) XFree(text);
    input_answers::settle(displayOf(*context), textOf);
    input_answers::forgetComposition();
  }
  return composed;
}

void setSpot(Window window, int x, int y) {
  Context *const context = contextOf(window);
  if (context == nullptr) return;
  context->spot = {static_cast<short>(x), static_cast<short>(y)};
  context->isSpotSent = false;
}

}  // namespace input_contexts
