#pragma once

#include <functional>
#include <string>

#import "tests/platform/sheets/SheetTest.h"
#include "tests/support/RepeatingTimer.h"

/// While in scope, takes the given steps one by one, each when the window of a modal session is on
/// the screen and the event queue is empty. A session that goes on after the last step is aborted,
/// so that a test fails instead of blocking for ever.
class ModalUser {
 public:
  explicit ModalUser(std::vector<std::function<void(NSWindow *)>> steps);
  ModalUser(const ModalUser &) = delete;
  ModalUser &operator=(const ModalUser &) = delete;

  /// Whether a session was aborted.
  bool hadToAbort() const { return looksAfterLast_ > kLooksUntilAborted; }

 private:
  static constexpr int kLooksUntilAborted = 250;

  void look();

  std::vector<std::function<void(NSWindow *)>> steps_;
  size_t next_ = 0;
  int looksAfterLast_ = 0;
  RepeatingTimer timer_;
};

/// An alert and a parent for its sheet.
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
