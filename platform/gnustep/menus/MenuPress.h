#pragma once

/// What a press of the mouse on a pop-up button, and the release that follows it, mean for the menu
/// that the press opens.
namespace menus {

/// In points of the screen, y upwards.
struct Point {
  double x = 0;
  double y = 0;
};

struct Area {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;

  /// As the platform assigns pixels: with the left and the upper edge, without the others.
  bool contains(Point point) const;
};

/// What the system takes for a click.
struct ClickLimits {
  /// From the press to the release.
  double seconds = 0;
  /// How far the mouse may move in between, in each direction.
  double points = 0;
};

/// One press, from the moment at which it opens the menu until the menu is closed.
///
/// Until the mouse has been moved away from where the press was, and out of `home`, it counts as
/// being over the item that was selected when the menu opened, wherever the other items lie: who
/// presses the edge of a button does not mean the neighbour of the button's title.
class MenuPress {
 public:
  /// seconds: when it was pressed, by the event's own clock. home: the part of the screen that
  /// belongs to the selected item; it may be empty.
  MenuPress(double seconds, Point place, const Area &selectedArea, const ClickLimits &limits);

  /// To be called for every place at which the mouse is seen.
  void moveTo(Point place);

  /// Whether a release then and there makes a click of the press: such a menu stays open. Of the
  /// events' times only, so that an application that is busy or stopped decides alike.
  bool isClickWithReleaseAt(double seconds, Point place) const;

  /// Whether the mouse still counts as being over the selected item.
  bool isOverSelectedItem() const { return isOverSelectedItem_; }

 private:
  bool isNear(Point place) const;

  double seconds_;
  Point place_;
  Area selectedArea_;
  ClickLimits limits_;
  bool hasMoved_ = false;
  bool isOverSelectedItem_ = true;
};

}  // namespace menus
