#pragma once

#include <string>

/// The text of an X selection that its owner hands over in parts, as programs do beyond about a
/// megabyte. GNUstep's pasteboard server cannot receive that: it waits for ever, and no program of
/// the platform has a clipboard any more.
struct LargeSelection {
  enum class Kind {
    NotLarge,  // nothing that comes in parts: the server may be asked
    Text,      // all of it
    Broken,    // the owner does not answer, or breaks off: the server must not be asked, it would
               // hang
  };
  Kind kind = Kind::NotLarge;
  std::string utf8;
};

/// Asks the owner of a selection ("CLIPBOARD") of the display for its text. Waits `seconds` at most
/// for each answer of the owner, and ten times as long for all of them. Any thread: the question
/// has a connection of its own with the display. An unknown display has nothing to hand over.
LargeSelection largeSelection(const char *display, const char *selection, double seconds);
