#pragma once

#import <AppKit/AppKit.h>

/// For its lifetime the application counts as running, which it otherwise does not, because a test
/// takes its events one by one. Only a running application looks for another key window when the
/// key window leaves the screen. Main thread.
class CountsAsRunning {
 public:
  CountsAsRunning() { setRunning(YES); }
  ~CountsAsRunning() { setRunning(NO); }
  CountsAsRunning(const CountsAsRunning &) = delete;
  CountsAsRunning &operator=(const CountsAsRunning &) = delete;

 private:
  static void setRunning(BOOL running) {
    [NSApp setValue:[NSNumber numberWithBool:running] forKey:@"_app_is_running"];
  }
};
