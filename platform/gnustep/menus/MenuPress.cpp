#include "platform/gnustep/menus/MenuPress.h"

#include <cmath>

namespace menus {

bool Area::contains(Point point) const {
  return point.x >= x && point.x < x + width && point.y > y && point.y <= y + height;
}

MenuPress::MenuPress(double seconds, Point place, const Area &selectedArea,
                     const ClickLimits &limits)
    : seconds_(seconds), place_(place), selectedArea_(selectedArea), limits_(limits) {}

bool MenuPress::isNear(Point place) const {
  return std::abs(place.x - place_.x) <= limits_.points &&
         std::abs(place.y - place_.y) <= limits_.points;
}

void MenuPress::moveTo(Point place) {
  const bool near = isNear(place);
  if (!near) hasMoved_ = true;
  if (!near && !selectedArea_.contains(place)) isOverSelectedItem_ = false;
}

bool MenuPress::isClickWithReleaseAt(double seconds, Point place) const {
  return !hasMoved_ && isNear(place) && seconds - seconds_ <= limits_.seconds;
}

}  // namespace menus
