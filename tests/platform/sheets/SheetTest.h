#pragma once

#include <gtest/gtest.h>

#include <vector>

#import "tests/support/Events.h"

/// The arguments of a did-end message.
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
/// For alerts. Does not retain the alert.
- (void)alertDidEnd:(NSAlert *)alert returnCode:(NSInteger)code contextInfo:(void *)context;
- (void)clicked:(id)sender;
- (void)ticked:(NSTimer *)timer;
- (void)endSheetOfTimer:(NSTimer *)timer;
@end

/// A window that counts its instances, and that can be moved off the screen, as by the user: the
/// platform keeps others on it.
@interface CountedWindow : NSWindow
+ (int)liveCount;
@end

/// A window with a title bar, a button and a field, and a delegate for its sheets; sheets have a
/// button and a field of their own. The application is active.
struct SheetTest : testing::Test {
  /// Drained at the end of a test, as at the end of an event.
  NSAutoreleasePool *pool = [[NSAutoreleasePool alloc] init];
  SheetDelegate *delegate = [[SheetDelegate alloc] init];
  NSWindow *parent = newWindow(NSMakeRect(300, 300, 480, 320));
  NSWindow *sheet = newWindow(NSMakeRect(0, 0, 300, 120));
  NSWindow *second = newWindow(NSMakeRect(0, 0, 260, 100));

  SheetTest();
  ~SheetTest() override;

  /// With a title bar, a button that counts clicks in the delegate, and an empty field, which is
  /// the initial first responder. The caller owns it.
  NSWindow *newWindow(NSRect content);
  static NSButton *button(NSWindow *window);
  static NSTextField *field(NSWindow *window);
  static NSString *typed(NSWindow *window);

  void begin(NSWindow *window) { begin(window, parent); }
  void begin(NSWindow *window, NSWindow *on);

  /// Deallocates the parent without closing it.
  void freeParent();
};
