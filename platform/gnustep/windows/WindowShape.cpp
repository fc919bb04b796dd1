#include "platform/gnustep/windows/WindowShape.h"

#include <X11/Xlib.h>
#include <X11/extensions/shape.h>

#include <initializer_list>

void setWindowHasShape(void *display, unsigned long window, bool hasShape) {
  auto *const connection = static_cast<Display *>(display);
  for (const int kind : {ShapeBounding, ShapeInput}) {
    if (hasShape) {
      XShapeCombineMask(connection, window, kind, 0, 0, None, ShapeSet);
    } else {
      XShapeCombineRectangles(connection, window, kind, 0, 0, nullptr, 0, ShapeSet, Unsorted);
    }
  }
}
