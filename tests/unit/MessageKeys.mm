#import "windows/MessageKeys.h"

#include <gtest/gtest.h>

TEST(MessageKeys, TabAndShiftTabLeadOut) {
  for (const BOOL isComposing : {NO, YES}) {
    EXPECT_EQ(messageKey(@selector(insertTab:), isComposing), MessageKey::Next);
    EXPECT_EQ(messageKey(@selector(insertBacktab:), isComposing), MessageKey::Previous);
  }
}

TEST(MessageKeys, EscapeCancels) {
  EXPECT_EQ(messageKey(@selector(cancelOperation:), NO), MessageKey::Cancel);
}

TEST(MessageKeys, EscapeOfAnInputMethodIsItsOwn) {
  EXPECT_EQ(messageKey(@selector(cancelOperation:), YES), MessageKey::Text);
}

TEST(MessageKeys, ReturnOptionTabAndCompletionAreTheTexts) {
  for (const SEL command : {
         @selector(insertNewline:), @selector(insertTabIgnoringFieldEditor:), @selector(complete:),
             @selector(moveUp:)
       }) {
    EXPECT_EQ(messageKey(command, NO), MessageKey::Text) << sel_getName(command);
  }
}
