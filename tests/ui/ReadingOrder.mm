#import "tests/ui/ReadingOrder.h"

#include <algorithm>

#import "tests/support/Events.h"

namespace {

struct Place {
  id view;
  NSRect frame;
};

/// Where the view is in its window; of a view of tabs, its row of tabs.
NSRect placeOf(NSView *view) {
  NSRect frame = [view convertRect:[view bounds] toView:nil];
  if ([view isKindOfClass:[NSTabView class]]) {
    frame.origin.y = NSMaxY(frame) - 1;
    frame.size.height = 1;
  }
  return frame;
}

bool isWorkedByKeyboard(NSView *view) {
  if ([view isKindOfClass:[NSTabView class]]) {
    return [static_cast<NSTabView *>(view) numberOfTabViewItems] > 1;
  }
  if ([view isKindOfClass:[NSTextView class]]) {
    return [static_cast<NSTextView *>(view) isEditable] &&
           ![static_cast<NSTextView *>(view) isFieldEditor];
  }
  if ([view isKindOfClass:[NSTextField class]]) {
    return
        [static_cast<NSTextField *>(view) isEditable] && [static_cast<NSControl *>(view) isEnabled];
  }
  return [view isKindOfClass:[NSButton class]] && [static_cast<NSControl *>(view) isEnabled];
}

void addPlaces(NSView *view, std::vector<Place> &places) {
  if ([view isHidden]) return;
  if (isWorkedByKeyboard(view)) places.push_back({view, placeOf(view)});
  for (NSView *subview in [view subviews]) addPlaces(subview, places);
}

}  // namespace

std::vector<id> viewsInReadingOrder(NSWindow *window) {
  std::vector<Place> places;
  addPlaces([window contentView], places);
  std::ranges::sort(places, std::ranges::greater{}, [](const Place &p) { return NSMaxY(p.frame); });
  std::vector<id> views;
  for (auto line = places.begin(); line != places.end();) {
    // As long as a view's middle is beside the line's first one, it is in the same line.
    const NSRect first = line->frame;
    const auto end = std::find_if(
        line, places.end(), [first](const Place &p) { return NSMidY(p.frame) < NSMinY(first); });
    std::sort(line, end, [](const Place &one, const Place &other) {
      return NSMinX(one.frame) < NSMinX(other.frame);
    });
    for (; line != end; ++line) views.push_back(line->view);
  }
  return views;
}

id viewWithFocus(NSWindow *window) {
  id const responder = [window firstResponder];
  if (![responder isKindOfClass:[NSTextView class]] || ![responder isFieldEditor]) return responder;
  return [static_cast<NSTextView *>(responder) delegate];
}

std::vector<id> visitedByTab(NSWindow *window, std::size_t presses, bool back) {
  std::vector<id> visited;
  for (std::size_t i = 0; i < presses; ++i) {
    postKeys(window, back ? @"\x19" : @"\t");
    handlePostedEvents();
    visited.push_back(viewWithFocus(window));
  }
  return visited;
}
