#pragma once

#include <gtest/gtest.h>

#import <AppKit/AppKit.h>

#include <functional>
#include <string>
#include <vector>

#include "tests/support/ChildProcess.h"
#include "tests/support/Strings.h"

/// A subclass as an application has it: it answers key equivalents without asking its superclass.
@interface RecipientField : NSTokenField {
 @public
  /// The texts of the tool tips that it has.
  NSMutableDictionary *toolTips;
}
@end

/// Completes from a list and knows addresses written as "Name<address>".
@interface RecipientDelegate : NSObject <NSTokenFieldDelegate> {
 @public
  NSArray *book;
  NSInteger selectedItem;
  NSMutableArray *asked;
  NSMutableArray *askedIndexes;
  NSUInteger changes;
  NSSet *refused;
}
@end

/// Counts clicks, and reads of a long list.
@interface ClickCounter : NSObject {
 @public
  int clicks;
}
- (void)clicked:(id)sender;
@end

/// What an array of a hundred thousand entries costs: how many of them were read.
@interface CountingArray : NSArray {
 @public
  NSUInteger length;
  NSUInteger reads;
}
@end

/// A key window with a token field, a text field after it and a default button. What the user does
/// goes through the application's event queue.
class TokenField : public testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  /// Types characters, one key each; a line break is Return, a tab is Tab.
  void type(NSString *characters);
  /// One key, with its character or function key code.
  void press(unichar key, NSUInteger modifiers = 0);
  /// Queues a key without letting the application see it yet.
  void queueKey(unichar key, NSUInteger modifiers = 0);
  /// Lets the application handle everything that is in the queue.
  void settle();
  /// Goes on handling events until something holds, at most a minute.
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
