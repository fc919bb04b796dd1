#pragma once

#include <gtest/gtest.h>

#include <vector>

#import "tests/support/Events.h"

/// What a modal delegate was told.
struct SheetEnd {
  id subject;
  NSInteger code;
  void *context;
  bool wasOnScreen;
};

/// A modal delegate of sheets and of alerts, and the target of buttons and timers.
@interface SheetDelegate : NSObject {
 @public
  std::vector<SheetEnd> ends;
  int clicks;
  int ticks;
  NSWindow *beginsNext;
  NSWindow *nextParent;
  NSWindow *closes;
  bool ordersOut;
  bool *isFreed;
}
/// For sheets. Closes the one window and begins the other one, when there are any.
- (void)sheetDidEnd:(NSWindow *)sheet returnCode:(NSInteger)code contextInfo:(void *)context;
/// For alerts. Does not retain what it notes.
- (void)alertDidEnd:(NSAlert *)alert returnCode:(NSInteger)code contextInfo:(void *)context;
- (void)clicked:(id)sender;
- (void)ticked:(NSTimer *)timer;
- (void)endSheetOfTimer:(NSTimer *)timer;
@end

/// A window that says when it is freed, and that goes where it is put, as under a user's hand: the
/// platform keeps others on the screen.
@interface CountedWindow : NSWindow
+ (int)liveCount;
@end

/// A window with a title bar, a button and a field, and a delegate for its sheets; sheets have a
/// button and a field of their own. The application is active, as while somebody works with it.
struct SheetTest : testing::Test {
  /// What the platform autoreleases in a test ends with it, as with an event.
  NSAutoreleasePool *pool = [[NSAutoreleasePool alloc] init];
  SheetDelegate *delegate = [[SheetDelegate alloc] init];
  NSWindow *parent = newWindow(NSMakeRect(300, 300, 480, 320));
  NSWindow *sheet = newWindow(NSMakeRect(0, 0, 300, 120));
  NSWindow *second = newWindow(NSMakeRect(0, 0, 260, 100));

  SheetTest();
  ~SheetTest() override;

  /// With a title bar, a button that counts the delegate's clicks, and an empty field that has the
  /// keyboard first. The caller owns it.
  NSWindow *newWindow(NSRect content);
  static NSButton *button(NSWindow *window);
  static NSTextField *field(NSWindow *window);
  static NSString *typed(NSWindow *window);

  void begin(NSWindow *window) { begin(window, parent); }
  void begin(NSWindow *window, NSWindow *on);

  /// Frees the parent without closing it.
  void freeParent();
};
