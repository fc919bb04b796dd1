#pragma once

#include <X11/Xlib.h>

#include <cstddef>
#include <optional>
#include <string>

/// The X input contexts of this process's windows, which show the text that is being composed in
/// the text itself ("on the spot"). On the main thread.
namespace input_contexts {

/// Is told what an input method does. Called while an event is filtered.
class Composer {
 public:
  /// The text that is being composed is now this one, in UTF-8; empty: nothing is composed any
  /// more. `caret` is in UTF-16 units.
  virtual void compose(const std::string &text, std::size_t caret) = 0;

  /// What is being composed is final as it is.
  virtual void end() = 0;

  virtual ~Composer() = default;
};

/// An input context for a window; nullptr where the input method cannot leave the drawing of the
/// text to the program. The composer outlives all contexts.
XIC create(XIM method, Window window, Composer &composer);

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

/// The text that an input method has sent before a key event, or before the text in it, but which
/// is still behind it in the queue of the connection; taken out of the queue. Usually empty.
std::string textBehind(const XKeyEvent &key);

/// The same for a key that the input method has sent back. Where that key has ended what was being
/// composed, its text is waited for, for a tenth of a second at most: some send the key before it.
std::string textBefore(const XKeyEvent &key);

/// To be called for each key before the input method gets it: one that types ends what reset()
/// does.
void keyWillArrive(XKeyEvent key);

/// Makes the input methods forget what they are composing, and returns it, in UTF-8. They may still
/// send it as typed text; that they show it once more is hidden until the next key. Waits for the
/// input method only if it is composing.
std::string reset();

/// Where the caret is, in pixels from the upper left of its window, for an input method's list of
/// candidates. The input method is told when it begins to compose.
void setSpot(Window window, int x, int y);

/// Tells the input method where the caret is, and waits for its reply.
void beginComposing(Window window);

}  // namespace input_contexts
