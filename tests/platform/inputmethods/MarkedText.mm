#include <gtest/gtest.h>

#import <AppKit/AppKit.h>

#import "platform/gnustep/inputmethods/Composition.h"
#import "platform/gnustep/inputmethods/CompositionEvents.h"
#import "platform/gnustep/inputmethods/NSTextView+MarkedText.h"
#import "tests/support/Events.h"

@interface MarkedTextListener : NSObject <NSTextViewDelegate> {
 @public
  int changes;
}
@end

@implementation MarkedTextListener

- (void)textDidChange:(NSNotification *)notification {
  (void)notification;
  ++changes;
}

@end

namespace {

/// A window whose first responder is a text view with "Dear all" and the caret behind it.
struct MarkedText : testing::Test {
  NSWindow *window = [[NSWindow alloc] initWithContentRect:NSMakeRect(200, 200, 300, 200)
                                                 styleMask:NSTitledWindowMask
                                                   backing:NSBackingStoreBuffered
                                                     defer:YES];
  NSTextView *text = [[[NSTextView alloc] initWithFrame:NSMakeRect(0, 0, 300, 100)] autorelease];
  NSTextView *other = [[[NSTextView alloc] initWithFrame:NSMakeRect(0, 100, 300, 100)] autorelease];
  MarkedTextListener *listener = [[[MarkedTextListener alloc] init] autorelease];

  MarkedText() {
    [window setReleasedWhenClosed:NO];
    [[window contentView] addSubview:text];
    [[window contentView] addSubview:other];
    [text setString:@"Dear all"];
    [text setAllowsUndo:YES];
    [text setDelegate:listener];
    [NSApp activateIgnoringOtherApps:YES];
    [window makeKeyAndOrderFront:nil];
    [window makeFirstResponder:text];
    [text setSelectedRange:NSMakeRange(8, 0)];
    handlePostedEvents();
    listener->changes = 0;
  }

  ~MarkedText() override {
    [text setDelegate:nil];
    [window close];
    [window release];
    handlePostedEvents();
  }

  void mark(NSString *string) {
    [text setMarkedText:string selectedRange:NSMakeRange([string length], 0)];
  }

  bool has(NSString *string) const { return [[text string] isEqualToString:string]; }

  bool isUnderlined(NSUInteger index) const {
    return [[[text textStorage] attribute:NSUnderlineStyleAttributeName
                                  atIndex:index
                           effectiveRange:NULL] intValue] != NSUnderlineStyleNone;
  }
};

}  // namespace

TEST_F(MarkedText, ATextViewHasNoneAtFirst) {
  EXPECT_FALSE([text hasMarkedText]);
  EXPECT_EQ([text markedRange].location, NSUInteger{NSNotFound});
}

TEST_F(MarkedText, StandsUnderlinedAtTheCaret) {
  mark(@"ka");
  EXPECT_TRUE(has(@"Dear allka"));
  EXPECT_TRUE(NSEqualRanges([text markedRange], NSMakeRange(8, 2)));
  EXPECT_FALSE(isUnderlined(7));
  EXPECT_TRUE(isUnderlined(8));
}

TEST_F(MarkedText, IsReplacedByTheNextOne) {
  mark(@"k");
  mark(@"\u304B");
  EXPECT_TRUE(has(@"Dear all\u304B"));
}

TEST_F(MarkedText, IsUnknownToTheDelegateAndToUndo) {
  mark(@"k");
  mark(@"ka");
  mark(@"");
  EXPECT_EQ(listener->changes, 0);
  EXPECT_FALSE([[text undoManager] canUndo]);
  EXPECT_TRUE(has(@"Dear all"));
}

TEST_F(MarkedText, TakesThePlaceOfTheSelectedText) {
  [text setSelectedRange:NSMakeRange(0, 4)];
  mark(@"k");
  EXPECT_TRUE(has(@"k all"));
}

TEST_F(MarkedText, BecomesTextWhenItIsUnmarked) {
  mark(@"ka");
  [text unmarkText];
  EXPECT_TRUE(has(@"Dear allka"));
  EXPECT_FALSE([text hasMarkedText]);
  EXPECT_FALSE(isUnderlined(8));
  EXPECT_EQ(listener->changes, 1);
}

TEST_F(MarkedText, WhatIsTypedAfterwardsIsNotUnderlined) {
  mark(@"ka");
  [text unmarkText];
  [text insertText:@"x"];
  EXPECT_FALSE(isUnderlined(10));
}

TEST_F(MarkedText, NothingIsMarkedInATextThatCannotBeEdited) {
  [text setEditable:NO];
  mark(@"k");
  EXPECT_TRUE(has(@"Dear all"));
}

TEST_F(MarkedText, ARangeOfARemovedTextIsForgotten) {
  mark(@"ka");
  [text setString:@""];
  EXPECT_FALSE([text hasMarkedText]);
}

TEST_F(MarkedText, StaysInItsViewWhenTheFocusMoves) {
  installComposition();
  mark(@"ka");
  [window makeFirstResponder:other];
  EXPECT_TRUE(has(@"Dear allka"));
  EXPECT_FALSE([text hasMarkedText]);
  EXPECT_EQ([[other string] length], 0U);
}

TEST_F(MarkedText, StaysWhenTheWindowLosesTheFocus) {
  installComposition();
  mark(@"ka");
  [window resignKeyWindow];
  EXPECT_FALSE([text hasMarkedText]);
  EXPECT_TRUE(has(@"Dear allka"));
}

TEST_F(MarkedText, FinalTextComesBeforeWhatIsStillComposed) {
  postComposition(CompositionStep::Mark, @"ab", 2);
  postComposition(CompositionStep::Insert, @"\uD55C", 0);
  handlePostedEvents();
  EXPECT_TRUE(has(@"Dear all\uD55Cab"));
  EXPECT_TRUE(NSEqualRanges([text markedRange], NSMakeRange(9, 2)));
}

TEST_F(MarkedText, StepsAndKeysKeepTheirOrder) {
  postComposition(CompositionStep::Mark, @"ab", 2);
  postComposition(CompositionStep::End, @"", 0);
  postKeys(window, @"x");
  postComposition(CompositionStep::Insert, @"c", 0);
  handlePostedEvents();
  EXPECT_TRUE(has(@"Dear allabxc"));
}

TEST_F(MarkedText, AnEventWhoseTextWasHandledLeavesTheSelectedTextAlone) {
  [text selectAll:nil];
  postKeys(window, charactersOfHandledKey());
  handlePostedEvents();
  EXPECT_TRUE(has(@"Dear all"));
}
