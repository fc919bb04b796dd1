#pragma once

#include <X11/Xlib.h>

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>

/// The X input contexts of this process's windows, which show the text that is being composed in
/// the text itself ("on the spot"). On the main thread.
namespace input_contexts {

/// An input context for a window; nullptr where the input method cannot leave the drawing of the
/// text to the program.
XIC create(XIM method, Window window);

/// Makes one known that was made elsewhere, in another style.
void adopt(Window window, XIC context);

/// What becomes of a context whose window closes.
enum class Closing {
  Destroyed,       ///< it was made here
  LeftToOthers,    ///< it was made elsewhere, and is no longer known
  DestroyedBefore  ///< with its input method
};
Closing close(XIC context);

/// The input method has ended, and all contexts with it. Their windows have keys as without one.
void methodEnded();

/// Whether there are windows left whose contexts ended with their input method.
bool anyEnded();

/// What a key event means: its text in UTF-8, whatever its length, and its keysym.
struct LookedUp {
  std::string text;
  std::optional<KeySym> keysym;
};

/// Nothing for a window without a context.
std::optional<LookedUp> lookUp(XKeyEvent &event);

/// Whether an event has to wait until the input method has answered to the keys before it;
/// input_answers::flow() returns it again when its time has come.
bool holdBack(const XEvent &event);

/// Whether an event is for an input method. What the input methods answer, to this key or to
/// earlier ones, is among the input answers then.
bool filter(XEvent &event);

/// Whether no key came after this one. Then what was sent after it is about it, or came too late.
bool isNewest(const XKeyEvent &key);

/// Waits until the input methods send something, but not beyond the deadline. False when that has
/// passed.
bool waitForAnswers(Display *display, std::chrono::steady_clock::time_point deadline);

/// Makes the input methods forget what they are composing, and returns it, in UTF-8. They may still
/// send it as typed text; that they show it once more is hidden until the next key. Waits for the
/// input method only if it is composing.
std::string reset();

/// Where the caret is, in pixels from the upper left of its window, for an input method's list of
/// candidates.
void setSpot(Window window, int x, int y);

/// Tells the input method where the caret is, and waits for its reply. What the input method draws
/// meanwhile Xlib holds back until it draws once more, behind all else that comes until then; so
/// this is for when the user pauses. False, without an effect, while anything may come from it.
bool tellSpot(Window window);

}  // namespace input_contexts
