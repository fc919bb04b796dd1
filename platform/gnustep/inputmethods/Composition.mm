#import "platform/gnustep/inputmethods/Composition.h"

#import <GNUstepGUI/GSDisplayServer.h>

#include <X11/Xutil.h>

#include <algorithm>
#include <chrono>
#include <optional>
#include <string>
#include <vector>

#import "platform/gnustep/inputmethods/CompositionEvents.h"
#include "platform/gnustep/inputmethods/InputAnswers.h"
#include "platform/gnustep/inputmethods/InputContexts.h"
#import "platform/gnustep/runtime/MethodReplacement.h"

// The platform lets an input method show the text that is being composed in a window of its own,
// which only some desktops draw, somewhere below the window; what is composed stays with the input
// method when the caret is set elsewhere, and appears in the next field. Here it is shown in the
// text view that has the focus.

@interface NSObject (InputServer)
- (int)ximStyleInit;
@end

@interface GSDisplayServer (ServerEvents)
- (void)processEvent:(XEvent *)event;
- (void)receivedEvent:(void *)data
                 type:(RunLoopEventType)type
                extra:(void *)extra
              forMode:(NSString *)mode;
@end

/// Keys that wait for an input method which does not answer.
@interface HeldEvents : NSObject
+ (void)handleAfter:(NSTimeInterval)seconds;
@end

@implementation HeldEvents

+ (void)handleAfter:(NSTimeInterval)seconds {
  [NSObject cancelPreviousPerformRequestsWithTarget:self];
  [self performSelector:@selector(handle)
             withObject:nil
             afterDelay:seconds
                inModes:@[
                  NSDefaultRunLoopMode, NSModalPanelRunLoopMode, NSEventTrackingRunLoopMode
                ]];
}

+ (void)handle {
  [GSCurrentServer() receivedEvent:nullptr type:ET_RDESC extra:nullptr forMode:nil];
}

@end

namespace {

constinit platform::ReplacedMethod<XIC(Window)> platformCreate;
constinit platform::ReplacedMethod<void(XIC)> platformClose;
constinit platform::ReplacedMethod<NSString *(XKeyEvent *, void *, KeySym *)> platformLookUp;
constinit platform::ReplacedMethod<void(NSPoint)> platformUpdateSpot;
constinit platform::ReplacedMethod<void(NSEvent *)> platformMouseDown;
constinit platform::ReplacedMethod<BOOL(NSResponder *)> platformMakeFirstResponder;
constinit platform::ReplacedMethod<void()> platformResignKey;

/// What was taken over from an input method, which may send it once more.
NSString *takenOver = nil;

void setTakenOver(NSString *text) {
  [takenOver autorelease];
  takenOver = [text copy];
}

/// What was shown as being composed, when all that came until now has been handled.
struct Shown {
  bool isComposing = false;
  /// The last key has ended what was composed, and the final text has not come yet: some input
  /// methods send it after the key.
  bool owesText = false;
} shown;

NSString *stringOf(const std::string &text) {
  return [NSString stringWithUTF8String:text.c_str()] ?: @"";
}

/// The platform's one object for input methods, and its variable with the one that is in use.
id inputServer() {
  void *server = nullptr;
  object_getInstanceVariable(GSCurrentServer(), "inputServer", &server);
  return static_cast<id>(server);
}

XIM currentMethod() {
  void *method = nullptr;
  if (inputServer() != nil) object_getInstanceVariable(inputServer(), "xim", &method);
  return static_cast<XIM>(method);
}

void setCurrentMethod(XIM method) {
  object_setInstanceVariable(inputServer(), "xim", method);
}

void connectToNextMethod();

void methodEnded(XIM, XPointer, XPointer) {
  setCurrentMethod(nullptr);
  input_contexts::methodEnded();
  connectToNextMethod();
}

void watchMethod(XIM method) {
  XIMCallback ended = {nullptr, methodEnded};
  XSetIMValues(method, XNDestroyCallback, &ended, nullptr);
}

void methodBegan(Display *display, XPointer, XPointer) {
  if (currentMethod() != nullptr || input_contexts::anyEnded()) return;
  XIM const method = XOpenIM(display, nullptr, nullptr, nullptr);
  if (method == nullptr) return;
  XUnregisterIMInstantiateCallback(display, nullptr, nullptr, nullptr, methodBegan, nullptr);
  setCurrentMethod(method);
  [inputServer() ximStyleInit];
  watchMethod(method);
}

/// An input method that begins later is used as soon as no window is left that had one before: the
/// platform keeps the contexts of windows.
void connectToNextMethod() {
  if (currentMethod() != nullptr || input_contexts::anyEnded()) return;
  auto *const display = static_cast<Display *>([GSCurrentServer() serverDevice]);
  XRegisterIMInstantiateCallback(display, nullptr, nullptr, nullptr, methodBegan, nullptr);
}

XIC createContext(id self, SEL selector, Window window) {
  XIC context = input_contexts::create(currentMethod(), window);
  if (context != nullptr) return context;
  context = platformCreate(self, selector, window);
  if (context != nullptr) input_contexts::adopt(window, context);
  return context;
}

void closeContext(id self, SEL selector, XIC context) {
  switch (input_contexts::close(context)) {
    case input_contexts::Closing::Destroyed:
      break;
    case input_contexts::Closing::LeftToOthers:
      platformClose(self, selector, context);
      break;
    case input_contexts::Closing::DestroyedBefore:
      connectToNextMethod();
      break;
  }
}

/// The platform looks up each event twice.
bool isLookedUpAgain(const XKeyEvent &event) {
  static Time time = 0;
  static unsigned keycode = 0;
  const bool isKnown = event.time == time && event.keycode == keycode;
  time = event.time;
  keycode = event.keycode;
  return isKnown;
}

/// Text from an input method, except for what was taken over from it.
void insertFinalText(const std::string &text) {
  if (text.empty()) return;
  NSString *const final = stringOf(text);
  const BOOL isRepeated = [final isEqualToString:takenOver];
  setTakenOver(nil);
  if (!isRepeated) postComposition(CompositionStep::Insert, final, 0);
}

/// Text from an input method comes in key events without a key. A key that the input method has
/// left alone ends what is composed before it has its own effect.
NSString *lookUp(id self, SEL selector, XKeyEvent *event, void *device, KeySym *keysym) {
  const auto found = input_contexts::lookUp(*event);
  if (!found) return platformLookUp(self, selector, event, device, keysym);
  if (found->keysym) *keysym = *found->keysym;
  if (event->keycode == 0) {
    insertFinalText(found->text);
    return charactersOfHandledKey();
  }
  const bool isModifier = found->keysym && IsModifierKey(*found->keysym);
  if (isModifier || isLookedUpAgain(*event) || !input_contexts::isNewest(*event)) {
    return stringOf(found->text);
  }
  const std::string composed = input_contexts::reset();
  setTakenOver(nil);
  if (!composed.empty()) {
    shown = {};
    setTakenOver(stringOf(composed));
    postComposition(CompositionStep::Mark, stringOf(composed), 0);
    postComposition(CompositionStep::End, @"", 0);
  }
  return stringOf(found->text);
}

void handleAnswer(id self, input_answers::Answer &answer);

/// Handles the text of what was composed before a typed key, which some input methods send after
/// it. They are given a tenth of a second to do so.
void handleTextBefore(id self, const XKeyEvent &key) {
  constexpr std::chrono::milliseconds kNotPerceived(100);
  const auto deadline = std::chrono::steady_clock::now() + kNotPerceived;
  do {
    std::vector<input_answers::Answer> answers = input_answers::takeThroughText();
    for (input_answers::Answer &answer : answers) handleAnswer(self, answer);
    if (!answers.empty()) return;
    if (!shown.owesText && !input_answers::hasEndOfComposition()) return;
  } while (input_contexts::waitForAnswers(key.display, deadline));
}

void handleEvent(id self, XEvent &event) {
  if (input_answers::isTyped(event) && (shown.isComposing || shown.owesText)) {
    handleTextBefore(self, event.xkey);
    shown.owesText = false;
  }
  [self processEvent:&event];
}

void handleAnswer(id self, input_answers::Answer &answer) {
  using Kind = input_answers::Answer::Kind;
  switch (answer.kind) {
    case Kind::Key:
      handleEvent(self, answer.key);
      break;
    case Kind::Text:
      shown.owesText = false;
      insertFinalText(answer.text);
      break;
    case Kind::Compose:
      shown.owesText = shown.isComposing && answer.text.empty();
      shown.isComposing = !answer.text.empty();
      postComposition(CompositionStep::Mark, stringOf(answer.text), answer.caret);
      break;
    case Kind::End:
      shown = {};
      postComposition(CompositionStep::End, @"", 0);
      break;
  }
}

/// As the platform's, but what input methods answer comes in its order, and they get a key when
/// they have answered to the one before.
void receivedEvent(id self, SEL, void *, int, void *, NSString *) {
  auto *const display = static_cast<Display *>([self serverDevice]);
  InputFlow &flow = input_answers::flow();
  while (true) {
    handleInputAnswers();
    XEvent event;
    if (const std::optional<XEvent> held = flow.next(std::chrono::steady_clock::now())) {
      event = *held;
    } else if (XPending(display) > 0) {
      XNextEvent(display, &event);
      if (input_contexts::holdBack(event)) continue;
    } else {
      break;
    }
    if (!input_contexts::filter(event)) handleEvent(self, event);
  }
  if (const auto time = flow.timeOfNext()) {
    const std::chrono::duration<double> left = *time - std::chrono::steady_clock::now();
    [HeldEvents handleAfter:std::max(left.count(), 0.0)];
  }
}

/// `caret` is the upper left of the caret in the view.
void updateSpot(id self, SEL selector, NSPoint caret) {
  platformUpdateSpot(self, selector, caret);
  NSTextView *const view = self;
  NSWindow *const window = [view window];
  NSView *const content = [window contentView];
  if (content == nil) return;
  NSFont *const font = [view font] ?: [NSFont userFontOfSize:0];
  // Below the line, where the list of candidates belongs.
  caret.y += [font defaultLineHeightForFont];
  const NSPoint place = [view convertPoint:caret toView:content];
  const CGFloat scale = [window userSpaceScaleFactor];
  const CGFloat fromTop = [content isFlipped] ? place.y : NSHeight([content bounds]) - place.y;
  input_contexts::setSpot(serverWindow(window), static_cast<int>(place.x * scale),
                          static_cast<int>(fromTop * scale));
}

void mouseDown(id self, SEL selector, NSEvent *event) {
  endComposition(self);
  platformMouseDown(self, selector, event);
}

BOOL makeFirstResponder(id self, SEL selector, NSResponder *responder) {
  NSTextView *const view = focusedTextView(self);
  if (view != responder) endComposition(view);
  return platformMakeFirstResponder(self, selector, responder);
}

void resignKeyWindow(id self, SEL selector) {
  endComposition(focusedTextView(self));
  platformResignKey(self, selector);
}

}  // namespace

void endComposition(NSTextView *view) {
  if (![view hasMarkedText]) return;
  setTakenOver([[view string] substringWithRange:[view markedRange]]);
  [view unmarkText];
  shown = {};
  input_contexts::reset();
  handleInputAnswers();
}

void handleInputAnswers() {
  while (std::optional<input_answers::Answer> answer = input_answers::next()) {
    handleAnswer(GSCurrentServer(), *answer);
  }
}

void installComposition() {
  // A class of the backend's bundle.
  Class const server = NSClassFromString(@"XIMInputServer");
  if (!platformCreate.install(server, @selector(ximCreateIC:), createContext)) return;
  platformClose.install(server, @selector(ximCloseIC:), closeContext);
  platform::replaceMethod([GSCurrentServer() class], @selector(receivedEvent:type:extra:forMode:),
                          reinterpret_cast<IMP>(receivedEvent));
  platformLookUp.install(server, @selector(lookupStringForEvent:window:keysym:), lookUp);
  if (XIM const method = currentMethod()) {
    watchMethod(method);
  } else {
    connectToNextMethod();
  }
  platformUpdateSpot.install([NSTextView class], @selector(_updateInputMethodWithInsertionPoint:),
                             updateSpot);
  platformMouseDown.install([NSTextView class], @selector(mouseDown:), mouseDown);
  platformMakeFirstResponder.install([NSWindow class], @selector(makeFirstResponder:),
                                     makeFirstResponder);
  platformResignKey.install([NSWindow class], @selector(resignKeyWindow), resignKeyWindow);
}
