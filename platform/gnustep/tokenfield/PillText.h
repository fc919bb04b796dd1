#pragma once

#include <functional>
#include <string>
#include <string_view>

/// What a token's pill shows of a text. The platform draws characters from left to right in the
/// order in which they are stored, so the order on the screen is made here.
namespace pill_text {

/// Whether a text has room.
using Fits = std::function<bool(std::u16string_view)>;

/// The text in the order in which its characters stand on the screen, from left to right: runs of
/// right-to-left scripts reversed, Arabic letters joined, marks after their letters. Line breaks
/// and other control characters become spaces.
std::u16string inScreenOrder(std::u16string_view text);

/// The text, or as much of its beginning and end as fits with an ellipsis between them. Never cuts
/// what the reader sees as one character. At least the ellipsis.
std::u16string truncatedInTheMiddle(std::u16string_view text, const Fits &fits);

}  // namespace pill_text
