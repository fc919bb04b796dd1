#include "devkit/mail/Recipients.h"

#include <algorithm>

namespace devkit {
namespace {

/// The longest address that mail servers accept.
constexpr std::size_t kLongestAddress = 254;

std::string_view trimmed(std::string_view text) {
  while (text.starts_with(' ')) text.remove_prefix(1);
  while (text.ends_with(' ')) text.remove_suffix(1);
  return text;
}

bool isAllowedInAddress(char character) {
  constexpr std::string_view special = "()<>[]:;,\\\"";
  const auto value = static_cast<unsigned char>(character);
  return value > ' ' && value != 0x7F && special.find(character) == special.npos;
}

}  // namespace

bool isAddress(std::string_view text) {
  const auto at = text.find('@');
  return text.size() <= kLongestAddress && at != text.npos && at > 0 && at + 1 < text.size() &&
         text.find('@', at + 1) == text.npos && std::ranges::all_of(text, isAllowedInAddress);
}

Recipients parseRecipients(std::string_view entered) {
  Recipients result;
  for (;;) {
    const auto comma = entered.find(',');
    const auto address = trimmed(entered.substr(0, comma));
    if (!isAddress(address)) {
      result.invalid = address;
      return result;
    }
    result.addresses.emplace_back(address);
    if (comma == entered.npos) return result;
    entered.remove_prefix(comma + 1);
  }
}

}  // namespace devkit
