#pragma once

#include <gtest/gtest.h>

#import <AppKit/AppKit.h>

#include <functional>
#include <string>
#include <vector>

#import "tests/platform/tokenfield/TokenRecipients.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/Strings.h"

/// A key window with a token field, a text field after it and a default button. Keys and clicks go
/// through the application's event queue.
class TokenField : public testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  /// Types characters, one key each; a line break is Return, a tab is Tab.
  void type(NSString *characters);
  /// One key, with its character or function key code.
  void press(unichar key, NSUInteger modifiers = 0);
  /// Queues a key event without handling it.
  void queueKey(unichar key, NSUInteger modifiers = 0);
  /// Makes the application handle all events in the queue.
  void settle();
  /// Handles events until the condition holds, at most for kWaitTimeoutSeconds.
  bool eventually(const std::function<bool()> &condition);

  void click(NSPoint inField, int count = 1, NSUInteger modifiers = 0);
  void drag(NSPoint from, NSPoint to);
  void clickInWindow(NSWindow *target, NSPoint inWindow);

  /// The middle of the nth token while the field is edited.
  NSPoint middleOfToken(NSUInteger index);

  void focus();
  void leave();
  NSTextView *editor() { return (NSTextView *)[field currentEditor]; }
  std::string value() { return text([field stringValue]); }
  std::string typed();
  NSUInteger tokenCount();
  std::string shownText(NSUInteger tokenIndex);
  std::string selection();

  /// The window of the completion list; nil while it is not on the screen.
  NSWindow *list();
  NSView *listRows();
  std::string highlighted();
  bool listOpens() {
    return eventually([this] { return list() != nil; });
  }

  NSString *clipboard();
  void setClipboard(NSString *text);

  void resizeField(NSRect frame);

  NSAutoreleasePool *pool_ = nil;
  NSWindow *window = nil;
  RecipientField *field = nil;
  NSTextField *next = nil;
  NSButton *button = nil;
  RecipientDelegate *delegate = nil;
  ClickCounter *counter = nil;
};
