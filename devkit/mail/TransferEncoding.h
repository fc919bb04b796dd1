#pragma once

#include <string>
#include <string_view>

/// Encodings of text that is not plain ASCII in a mail. Input is valid UTF-8 (see validUtf8).
namespace devkit {

/// A header text as it may follow "Name: ": unchanged when it is short plain text, otherwise as
/// encoded words (RFC 2047), folded. Line ends and other control characters become blanks, so that
/// no text can begin another header.
std::string headerText(std::string_view text);

/// A body as quoted-printable, lines ending in CR LF and no longer than 76 characters.
std::string quotedPrintable(std::string_view text);

}  // namespace devkit
