#pragma once

/// Interprets a press of the mouse on a pop-up button, which opens the menu, and the release that
/// follows it.
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

  /// Includes the left and the upper edge, as the platform assigns pixels.
  bool contains(Point point) const;
};

/// What counts as a click.
struct ClickLimits {
  /// From the press to the release.
  double seconds = 0;
  /// How far the mouse may move in between, in each direction.
  double points = 0;
};

/// One press, from the opening of the menu until it is closed.
///
/// Until the mouse has moved away from the press and out of `selectedArea`, it counts as being over
/// the item that was selected when the menu opened, because at the edge of the button another item
/// may lie under the mouse.
class MenuPress {
 public:
  /// seconds: the timestamp of the press. selectedArea: the area on the screen that belongs to the
  /// selected item; it may be empty.
  MenuPress(double seconds, Point place, const Area &selectedArea, const ClickLimits &limits);

  /// To be called for every location of the mouse.
  void moveTo(Point place);

  /// Whether a release at that time and place makes the press a click, after which the menu stays
  /// open. Uses timestamps of events only, so that the result is the same when the application is
  /// busy.
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
