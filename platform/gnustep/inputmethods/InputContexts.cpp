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

#include "platform/gnustep/inputmethods/PreeditText.h"

namespace input_contexts {
namespace {

constexpr XIMStyle kOnTheSpot = XIMPreeditCallbacks | XIMStatusNothing;

struct Context {
  Window window = None;
  XIC context = nullptr;
  Composer *composer = nullptr;
  PreeditText text;
  XPoint spot = {0, 0};
  bool isSpotSent = false;
  bool hasEnded = false;
  /// What comes is still about the text that it was made to forget.
  bool isForgetting = false;
  /// The last key has ended what was composed, and the final text has not come yet.
  bool owesText = false;
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

/// Not for every key: what the input method sends while Xlib waits for its reply comes in the wrong
/// order.
void sendSpot(Context &context) {
  context.isSpotSent = true;
  const XVaNestedList attributes = XVaCreateNestedList(0, XNSpotLocation, &context.spot, nullptr);
  XSetICValues(context.context, XNPreeditAttributes, attributes, nullptr);
  XFree(attributes);
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

void tell(Context &context) {
  context.composer->compose(context.text.utf8(), context.text.caret());
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
  if (!context.text.isEmpty()) context.owesText = true;
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
  const bool wasEmpty = context.text.isEmpty();
  context.text.replace(static_cast<std::size_t>(std::max(change.chg_first, 0)),
                       static_cast<std::size_t>(std::max(change.chg_length, 0)), text,
                       static_cast<std::size_t>(std::max(change.caret, 0)));
  if (!wasEmpty) context.owesText = context.text.isEmpty();
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

XIC create(XIM method, Window window, Composer &composer) {
  if (method == nullptr || !isOffered(method)) return nullptr;
  auto context = std::make_unique<Context>();
  context->window = window;
  context->composer = &composer;
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
  const bool isOurs = (*found)->composer != nullptr;
  const bool hasEnded = (*found)->hasEnded;
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
    // What the user sees stays: nobody else has it now.
    if (context->composer != nullptr) context->composer->end();
  }
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
  if (event.keycode == 0) context->owesText = false;
  LookedUp result;
  if (status == XLookupChars || status == XLookupBoth) {
    result.text = text.substr(0, static_cast<std::size_t>(length));
  }
  if (status == XLookupKeySym || status == XLookupBoth) result.keysym = keysym;
  return result;
}

void keyWillArrive(XKeyEvent key) {
  Context *const context = contextOf(key.window);
  if (context == nullptr || key.keycode == 0) return;
  // One that the input method sends back arrives twice.
  if (key.time != context->keyTime || key.keycode != context->keycode) context->owesText = false;
  context->keyTime = key.time;
  context->keycode = key.keycode;
  if ((key.state & (ControlMask | Mod1Mask | Mod4Mask)) != 0) return;
  if (!IsModifierKey(XLookupKeysym(&key, 0))) context->isForgetting = false;
}

std::string textBehind(const XKeyEvent &key) {
  Window window = key.window;
  // NOLINTNEXTLINE(readability-non-const-parameter): the type is Xlib's
  const auto isText = [](Display *, XEvent *event, XPointer data) -> Bool {
    return event->type == KeyPress && event->xkey.keycode == 0 &&
           event->xkey.window == *reinterpret_cast<Window *>(data);
  };
  std::string text;
  XEvent event;
  while (XCheckIfEvent(key.display, &event, isText, reinterpret_cast<XPointer>(&window))) {
    // Xlib returns the last one first.
    if (const std::optional<LookedUp> found = lookUp(event.xkey)) text.insert(0, found->text);
  }
  return text;
}

std::string textBefore(const XKeyEvent &key) {
  using Clock = std::chrono::steady_clock;
  constexpr std::chrono::milliseconds kNotPerceived(100);
  const auto deadline = Clock::now() + kNotPerceived;
  std::string text = textBehind(key);
  const Context *const context = contextOf(key.window);
  while (text.empty() && context != nullptr && context->owesText) {
    const auto left =
        std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now()).count();
    if (left <= 0) break;
    pollfd connection = {ConnectionNumber(key.display), POLLIN, 0};
    poll(&connection, 1, static_cast<int>(left));
    filterMessages(key.display);
    text = textBehind(key);
  }
  return text;
}

void beginComposing(Window window) {
  Context *const context = contextOf(window);
  if (context == nullptr || context->hasEnded || context->isSpotSent) return;
  sendSpot(*context);
}

std::string reset() {
  std::string composed;
  for (const std::unique_ptr<Context> &context : contexts()) {
    if (context->text.isEmpty()) continue;
    // Xlib holds back what the input method has drawn until it has replied to something.
    sendSpot(*context);
    if (context->text.isEmpty()) continue;
    composed += context->text.utf8();
    context->text.clear();
    context->isForgetting = true;
    char *const text = Xutf8ResetIC(context->context);
    if (text != nullptr) XFree(text);
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
