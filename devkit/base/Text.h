#pragma once

#include <string>
#include <string_view>

namespace devkit {

/// The text with every byte that is no UTF-8 replaced by the replacement character, so that a mail,
/// a reply and the log can contain it. Overlong forms and surrogates are no UTF-8.
std::string validUtf8(std::string_view text);

/// The length in bytes of the UTF-8 character that text begins with; 0 when it begins with none.
std::size_t utf8CharacterLength(std::string_view text);

/// Undoes percent-escaping and makes valid UTF-8 of the result. A percent sign without two digits
/// stays as it is.
std::string percentDecoded(std::string_view escaped);

}  // namespace devkit
