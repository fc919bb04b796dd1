#pragma once

#include <functional>
#include <string>

#import "tests/platform/sheets/SheetTest.h"
#include "tests/support/RepeatingTimer.h"

/// While one of these lives, the given steps are done one by one, each when a modal session's
/// window is on the screen and the queue of events has been worked off. A session that goes on
/// after the last one is aborted after a while, so that a test fails instead of waiting for ever.
class ModalUser {
 public:
  explicit ModalUser(std::vector<std::function<void(NSWindow *)>> steps);
  ModalUser(const ModalUser &) = delete;
  ModalUser &operator=(const ModalUser &) = delete;

  /// Whether it came to that.
  bool hadToAbort() const { return looksAfterLast_ > kLooksUntilAborted; }

 private:
  static constexpr int kLooksUntilAborted = 250;

  void look();

  std::vector<std::function<void(NSWindow *)>> steps_;
  size_t next_ = 0;
  int looksAfterLast_ = 0;
  RepeatingTimer timer_;
};

/// An alert with a window to be the sheet of.
struct AlertTest : SheetTest {
  NSAlert *alert = [[NSAlert alloc] init];

  ~AlertTest() override;

  void begin() { begin(@selector(alertDidEnd:returnCode:contextInfo:)); }
  void begin(SEL didEnd);
  /// The n-th button from the right, counted from 0.
  NSButton *button(NSUInteger index) { return [[alert buttons] objectAtIndex:index]; }
  NSWindow *panel() { return [alert window]; }
};

/// Every view of that class in the window, in the order of the view tree.
NSArray *viewsOfClass(NSWindow *window, Class viewClass);

/// The texts that the window shows, joined by "|".
std::string shownTexts(NSWindow *window);

/// Whether a click in the middle of the button would reach it.
bool isReachable(NSButton *button);
