#pragma once

#import <AppKit/AppKit.h>

#import "app/ContextMenuAppAppDelegate.h"

/// The delegate, made by the application's own main interface resource. The application's launch
/// sequence has not run yet.
inline ContextMenuAppAppDelegate *loadedDelegate() {
  if ([NSApp delegate] == nil) [NSBundle loadNibNamed:@"MainMenu" owner:NSApp];
  return static_cast<ContextMenuAppAppDelegate *>([NSApp delegate]);
}

/// What is on the general clipboard as text, nil when there is none.
inline NSString *clipboardText() {
  return [[NSPasteboard generalPasteboard] stringForType:NSStringPboardType];
}

/// Puts something on the clipboard that must not survive.
inline void fillClipboard() {
  NSPasteboard *const pasteboard = [NSPasteboard generalPasteboard];
  [pasteboard declareTypes:[NSArray arrayWithObject:NSStringPboardType] owner:nil];
  [pasteboard setString:@"former contents" forType:NSStringPboardType];
}
