#include <gtest/gtest.h>

#include "tests/support/Strings.h"
#include "tests/ui/Application.h"
#include "tests/ui/EditingFields.h"

namespace {

/// The shortcuts, sent through the application's queue, key window and field editor.
struct EditingKeyEvents : testing::TestWithParam<const char *> {
  EditingFields fields { NSClassFromString(@(GetParam())) };

  EditingKeyEvents() { fillClipboard(); }

  void press(unsigned short key, NSUInteger others = 0) {
    fields.press(key, NSCommandKeyMask | others);
  }

  std::string edited() { return text([fields.editor() string]); }

  std::string selected() {
    return text([[fields.editor() string] substringWithRange:[fields.editor() selectedRange]]);
  }
};

std::string nameOf(const testing::TestParamInfo<const char *> &info) {
  return info.param;
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(Fields, EditingKeyEvents,
                         testing::Values("CustomTextFieldSubclass", "CustomTokenFieldSubClass"),
                         nameOf);

TEST_P(EditingKeyEvents, CommandASelectsAllOfTheText) {
  fields.edit(fields.field, @"hello", false);
  press(kKeyA);
  EXPECT_EQ(selected(), "hello");
}

TEST_P(EditingKeyEvents, ShiftCommandASelectsAllToo) {
  fields.edit(fields.field, @"hello", false);
  press(kKeyA, NSShiftKeyMask);
  EXPECT_EQ(selected(), "hello");
}

TEST_P(EditingKeyEvents, CommandCPutsTheSelectionOnTheClipboard) {
  fields.edit(fields.field, @"hello", true);
  press(kKeyC);
  EXPECT_EQ(text(clipboardText()), "hello");
  EXPECT_EQ(edited(), "hello");
}

TEST_P(EditingKeyEvents, CommandXMovesTheSelectionToTheClipboard) {
  [fields.edit(fields.field, @"hello", false) setSelectedRange:NSMakeRange(1, 3)];
  press(kKeyX);
  EXPECT_EQ(text(clipboardText()), "ell");
  EXPECT_EQ(edited(), "ho");
}

TEST_P(EditingKeyEvents, CommandVReplacesTheSelectionByTheClipboard) {
  fields.edit(fields.field, @"hello", true);
  press(kKeyV);
  EXPECT_EQ(edited(), "former contents");
}

TEST_P(EditingKeyEvents, CommandVInsertsWithNothingSelected) {
  fields.edit(fields.field, @"hello ", false);
  press(kKeyV);
  EXPECT_EQ(edited(), "hello former contents");
}

TEST_P(EditingKeyEvents, CommandVWithAnEmptyClipboardIsHandledAndChangesNothing) {
  fields.edit(fields.field, @"hello", false);
  [[NSPasteboard generalPasteboard] clearContents];
  EXPECT_TRUE([fields.field performKeyEquivalent:keyEvent(NSKeyDown, kKeyV, NSCommandKeyMask)]);
  press(kKeyV);
  EXPECT_EQ(edited(), "hello");
}

TEST_P(EditingKeyEvents, CommandCWithNothingSelectedIsNotHandledAndLeavesTheClipboardAlone) {
  fields.edit(fields.field, @"hello", false);
  const NSInteger before = [[NSPasteboard generalPasteboard] changeCount];
  EXPECT_FALSE([fields.field performKeyEquivalent:keyEvent(NSKeyDown, kKeyC, NSCommandKeyMask)]);
  press(kKeyC);
  EXPECT_EQ(text(clipboardText()), "former contents");
  EXPECT_EQ([[NSPasteboard generalPasteboard] changeCount], before);
}

TEST_P(EditingKeyEvents, CommandZTakesBackWhatWasEntered) {
  fields.edit(fields.field, @"hello", false);
  press(kKeyZ);
  EXPECT_EQ(edited(), "");
}

TEST_P(EditingKeyEvents, CommandZTakesBackACut) {
  fields.edit(fields.field, @"hello", true);
  press(kKeyX);
  ASSERT_EQ(edited(), "");
  press(kKeyZ);
  EXPECT_EQ(edited(), "hello");
}

TEST_P(EditingKeyEvents, CommandZIsNotHandledBeforeAnythingWasEntered) {
  fields.edit(fields.field, @"", false);
  EXPECT_FALSE([fields.field performKeyEquivalent:keyEvent(NSKeyDown, kKeyZ, NSCommandKeyMask)]);
}

TEST_P(EditingKeyEvents, TheTextThatIsEditedCountsAndNotTheFieldThatIsAskedFirst) {
  fields.edit(fields.field, @"first", false);
  fields.edit(fields.other, @"second", true);
  press(kKeyX);
  EXPECT_EQ(text(clipboardText()), "second");
  EXPECT_EQ(edited(), "");
}

TEST_P(EditingKeyEvents, NothingHappensWhileAButtonHasTheKeyboard) {
  fields.edit(fields.field, @"hello", true);
  [fields.window makeFirstResponder:fields.button];
  for (const unsigned short key : {kKeyA, kKeyX, kKeyC, kKeyV, kKeyZ}) press(key);
  EXPECT_EQ(text(clipboardText()), "former contents");
  EXPECT_EQ([fields.window firstResponder], fields.button);
}

TEST_P(EditingKeyEvents, TheKeysWithoutCommandAreText) {
  fields.edit(fields.field, @"hello", false);
  fields.press(kKeyV, 0, @"v");
  fields.press(kKeyA, NSShiftKeyMask, @"A");
  EXPECT_EQ(edited(), "hellovA");
}

TEST_P(EditingKeyEvents, AShortcutThatIsNotHandledWritesNothing) {
  fields.edit(fields.field, @"hello", false);
  for (const unsigned short key : {kKeyS, kKeyX, kKeyC}) {
    fields.press(key, NSCommandKeyMask, @"s");
  }
  EXPECT_EQ(edited(), "hello");
}
