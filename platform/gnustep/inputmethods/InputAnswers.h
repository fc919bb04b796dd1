#pragma once

#include <X11/Xlib.h>

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/gnustep/inputmethods/InputFlow.h"

/// What the input methods have answered to keys and nobody has done yet, in the order in which they
/// have answered. Xlib itself puts keys and texts into its queue one in front of the other, so that
/// those that come while it waits for something else would be in the reverse order. On the main
/// thread.
namespace input_answers {

/// What is to be held back meanwhile. It is told here of all that is sent and answered.
InputFlow &flow();

struct Answer {
  enum class Kind {
    Key,      ///< `key` is not for the input method
    Text,     ///< `text` is final, and comes before one that is being composed
    Compose,  ///< `text` is being composed; empty: nothing is any more
    End,      ///< what is being composed is final as it is
  };
  Kind kind = Kind::Key;
  XEvent key = {};
  std::string text;       ///< in UTF-8
  std::size_t caret = 0;  ///< in the text of Compose, in UTF-16 units
};

/// To be called for each press and release of a key before the input method gets it.
void keyWillBeSent(const XKeyEvent &key);

/// The input method does not get the key after all.
void keyWasNotSent();

/// Whether Xlib has made this event of what an input method has sent. Keys that one sends of its
/// own accord, after a text for instance, have no time.
bool isAnswer(const XEvent &event);

/// Adds one of Compose, which the input method has sent, or of End, behind all the others.
void add(Answer answer);

/// The text of an event without a key; nothing if there is no such text.
using LookUp = std::function<std::optional<std::string>(XKeyEvent &event)>;

/// Takes what Xlib has put into its queue out of it, and adds it behind all the others.
void collect(Display *display, const LookUp &lookUp);

/// To be called after each call that lets Xlib wait for an input method or handle what one has
/// sent: collects, and tells Xlib that what it has put into its queue was taken out.
void settle(Display *display, const LookUp &lookUp);

/// The input method has ended. The keys of the last two seconds that it has not answered are for
/// the program.
void methodEnded();

/// Takes the first one.
std::optional<Answer> next();

/// Whether a key event is the press of a key that is no modifier.
bool isTyped(const XEvent &key);

/// Takes what is about composed text, up to and with the first final one, if that is before the
/// next typed key; nothing otherwise.
std::vector<Answer> takeThroughText();

/// Whether, up to the next typed key, it is said that nothing is being composed any more.
bool hasEndOfComposition();

/// Removes what is about a text that is being composed.
void forgetComposition();

}  // namespace input_answers
