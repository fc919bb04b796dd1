#pragma once

#import <AppKit/AppKit.h>

#import "app/ContextMenuAppAppDelegate.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/PlatformLeak.h"

/// The delegate, created by the application's own main interface file. The application's launch
/// sequence has not run yet.
inline ContextMenuAppAppDelegate *loadedDelegate() {
  if ([NSApp delegate] == nil) [NSBundle loadNibNamed:@"MainMenu" owner:NSApp];
  return static_cast<ContextMenuAppAppDelegate *>([NSApp delegate]);
}

/// What is on the general clipboard as text, nil when there is none.
inline NSString *clipboardText() {
  // The platform sometimes leaks an object of the connection to the pasteboard's server when it
  // reads. The application only writes.
  const PlatformLeak loss;
  return [[NSPasteboard generalPasteboard] stringForType:NSStringPboardType];
}

/// Puts a text on the clipboard that a test must replace; returns whether it is there. Tries until
/// it is: on a busy machine the platform now and then does not find the server that it has just
/// started, and says so in a log line. To be called before a test looks at the log.
inline bool fillClipboard() {
  return waitFor([] {
    NSPasteboard *const pasteboard = [NSPasteboard generalPasteboard];
    [pasteboard declareTypes:[NSArray arrayWithObject:NSStringPboardType] owner:nil];
    return [pasteboard setString:@"former contents" forType:NSStringPboardType] &&
           [clipboardText() isEqualToString:@"former contents"];
  });
}
