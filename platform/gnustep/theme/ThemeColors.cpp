#include "platform/gnustep/theme/ThemeColors.h"

namespace theme {
namespace {

bool colorsAreDark = false;

}  // namespace

bool isDark() {
  return colorsAreDark;
}

void setDark(bool isDark) {
  colorsAreDark = isDark;
}

}  // namespace theme
