#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace devkit {

/// Whether a text can be used in a mail as a single address. Laxer than the application about what
/// an address is, and strict about what a mail program could read as something else: line ends,
/// blanks, lists, brackets, quotes.
bool isAddress(std::string_view text);

/// Recipients as they were entered, separated by commas.
struct Recipients {
  std::vector<std::string> addresses;
  /// The first piece that is no address, if there is one; then nothing may be sent.
  std::optional<std::string> invalid;
};

/// Blanks around an address do not belong to it; an empty piece is no address.
Recipients parseRecipients(std::string_view entered);

}  // namespace devkit
