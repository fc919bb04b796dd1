#pragma once

#import <AppKit/AppKit.h>

/// Whether nothing in this process will wake this thread in the next second: its run loop has no
/// timer, in the default mode or a modal session's, and no delayed message that is due by then.
/// Fires what is due already.
inline bool nothingIsDueSoon() {
  constexpr NSTimeInterval kSoonSeconds = 1;
  for (NSString *const mode in @[ NSDefaultRunLoopMode, NSModalPanelRunLoopMode ]) {
    NSDate *const next = [[NSRunLoop currentRunLoop] limitDateForMode:mode];
    if (next != nil && [next timeIntervalSinceNow] < kSoonSeconds) return false;
  }
  return true;
}
