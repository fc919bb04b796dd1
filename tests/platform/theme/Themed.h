#pragma once

#include <gtest/gtest.h>

#import <AppKit/AppKit.h>

#include "tests/platform/theme/Picture.h"

/// A window on the screen for the controls of one test.
struct Themed : testing::Test {
  Themed();
  ~Themed() override;
  Themed(const Themed &) = delete;
  Themed &operator=(const Themed &) = delete;

  /// Adds a view to the window and releases it.
  template <class View>
  View *show(View *view) {
    [[window contentView] addSubview:view];
    [view release];
    return view;
  }

  NSButton *pushButton(NSString *title);
  NSButton *defaultButton(NSString *title);
  NSButton *markable(NSButtonType type, NSInteger state);
  NSTextField *field(NSString *text);
  NSTextField *label(NSString *text);
  NSPopUpButton *popUp(NSArray *titles);
  NSTabView *tabs(NSArray *labels);
  /// In a scroll view with a border.
  NSTextView *textView();

  bool focus(NSView *view) { return [window makeFirstResponder:view]; }

  NSWindow *const window;
};

/// Handles the events in the queue.
void handleEvents();

/// Presses and releases the mouse at a point of the view, as the user would.
void clickIn(NSView *view, NSPoint point);

/// Types one key into the window.
void typeKey(NSWindow *window, unichar key, NSUInteger modifiers = 0);
