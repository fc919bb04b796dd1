#include "platform/gnustep/shaping/TextDirection.h"

#include <unicode/ubidi.h>

namespace text_direction {
namespace {

constexpr char16_t kAttachment = u'\uFFFC';

}  // namespace

bool isRightToLeft(std::u16string_view paragraph) {
  if (paragraph.find(kAttachment) != std::u16string_view::npos) return false;
  return ubidi_getBaseDirection(paragraph.data(), static_cast<std::int32_t>(paragraph.size())) ==
         UBIDI_RTL;
}

std::vector<std::size_t> visualOrder(std::span<const std::uint8_t> levels) {
  std::vector<std::int32_t> order(levels.size());
  ubidi_reorderVisual(levels.data(), static_cast<std::int32_t>(levels.size()), order.data());
  return {order.begin(), order.end()};
}

}  // namespace text_direction
