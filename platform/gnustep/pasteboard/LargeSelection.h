#pragma once

#include <string>

/// The text of an X selection that its owner transfers in parts (INCR), as programs do beyond about
/// a megabyte. GNUstep's pasteboard server cannot receive that: it blocks for ever, and no GNUstep
/// program has a clipboard any more.
struct LargeSelection {
  enum class Kind {
    NotLarge,  // no transfer in parts: the server may be asked
    Text,      // the whole text
    Broken,    // the owner does not reply, or stops: the server must not be asked, it would
               // hang
  };
  Kind kind = Kind::NotLarge;
  std::string utf8;
};

/// Asks the owner of a selection ("CLIPBOARD") on the display for its text. Waits at most `seconds`
/// for each reply, and ten times as long for all of them. Any thread, because the request has a
/// connection of its own to the display. NotLarge for an unknown display.
LargeSelection largeSelection(const char *display, const char *selection, double seconds);
