#pragma once

#include <functional>
#include <string>
#include <string_view>

/// The text that the pill of a token draws.
namespace pill_text {

/// Whether a text fits.
using Fits = std::function<bool(std::u16string_view)>;

/// The text with spaces for its line breaks and other control characters.
std::u16string onOneLine(std::u16string_view text);

/// The text, or as much of its beginning and end as fits with an ellipsis between them. Composed
/// character sequences are kept whole. At least the ellipsis.
std::u16string truncatedInTheMiddle(std::u16string_view text, const Fits &fits);

}  // namespace pill_text
