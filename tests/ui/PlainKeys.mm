#include <gtest/gtest.h>

#include "tests/support/Strings.h"
#include "tests/ui/Application.h"
#include "tests/ui/EditingFields.h"

namespace {

/// Keys that are not written with a shortcut in mind.
struct PlainKeys : testing::Test {
  EditingFields fields{NSClassFromString(@"CustomTextFieldSubclass")};
};

}  // namespace

TEST_F(PlainKeys, TypedOverTheSelectedTextOfALabelDoNotCopyIt) {
  fillClipboard();
  [fields.field setStringValue:@"a label"];
  [fields.field setEditable:NO];
  [fields.window makeFirstResponder:fields.field];
  ASSERT_EQ([fields.editor() selectedRange].length, 7u);
  fields.press(kKeyC, 0, @"c");
  EXPECT_EQ(text(clipboardText()), "former contents");
  fields.press(kKeyC, NSCommandKeyMask, @"c");
  EXPECT_EQ(text(clipboardText()), "a label");
}

TEST_F(PlainKeys, DoNotPressAButtonWhoseShortcutNeedsCommand) {
  [fields.button setButtonType:NSPushOnPushOffButton];
  [fields.button setKeyEquivalent:@"k"];
  [fields.button setKeyEquivalentModifierMask:NSCommandKeyMask];
  [fields.window makeFirstResponder:nil];
  fields.press(0xFFFF, 0, @"k");
  EXPECT_EQ([fields.button state], NSOffState);
  fields.press(0xFFFF, NSCommandKeyMask, @"k");
  EXPECT_EQ([fields.button state], NSOnState);
}

TEST_F(PlainKeys, StillPressTheDefaultButton) {
  [fields.button setButtonType:NSPushOnPushOffButton];
  [fields.button setKeyEquivalent:@"\r"];
  [fields.window makeFirstResponder:nil];
  fields.press(36, 0, @"\r");
  EXPECT_EQ([fields.button state], NSOnState);
}

TEST_F(PlainKeys, WithCommandStillMoveInTheText) {
  NSTextView *const editor = fields.edit(fields.field, @"hello", false);
  const unichar leftArrow = NSLeftArrowFunctionKey;
  fields.press(123, NSCommandKeyMask | NSFunctionKeyMask,
               [NSString stringWithCharacters:&leftArrow length:1]);
  EXPECT_LT([editor selectedRange].location, 5u);
}
