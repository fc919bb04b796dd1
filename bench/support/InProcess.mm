#import "bench/support/InProcess.h"

#include <chrono>

void launchInProcess() {
  NSString *const principal =
      [[[NSBundle mainBundle] infoDictionary] objectForKey:@"NSPrincipalClass"];
  [NSClassFromString(principal) sharedApplication];
  [NSBundle loadNibNamed:@"MainMenu" owner:NSApp];
  [NSApp finishLaunching];
  // The platform's own loop, which does not run here, would set this.
  [[NSApp delegate] applicationDidFinishLaunching:nil];
}

NSWindow *openWindow() {
  for (NSWindow *window in [NSApp windows]) {
    if ([window isVisible] && [window windowController] != nil) return window;
  }
  return nil;
}

double millisecondsNow() {
  const std::chrono::duration<double, std::milli> now =
      std::chrono::steady_clock::now().time_since_epoch();
  return now.count();
}

NSEvent *handleEvent(NSDate *until) {
  NSEvent *const event = [NSApp nextEventMatchingMask:NSAnyEventMask
                                            untilDate:until
                                               inMode:NSDefaultRunLoopMode
                                              dequeue:YES];
  if (event != nil) [NSApp sendEvent:event];
  return event;
}
