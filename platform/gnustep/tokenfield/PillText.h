#pragma once

#include <functional>
#include <string>
#include <string_view>

/// The text that the pill of a token draws. The platform draws characters from left to right in
/// logical order, so they are reordered here.
namespace pill_text {

/// Whether a text fits.
using Fits = std::function<bool(std::u16string_view)>;

/// The text in visual order, from left to right: runs of right-to-left scripts reversed, Arabic
/// letters shaped, marks after their letters. Line breaks and other control characters become
/// spaces.
std::u16string inScreenOrder(std::u16string_view text);

/// The text, or as much of its beginning and end as fits with an ellipsis between them. Composed
/// character sequences are kept whole. At least the ellipsis.
std::u16string truncatedInTheMiddle(std::u16string_view text, const Fits &fits);

}  // namespace pill_text
