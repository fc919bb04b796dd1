#include <gtest/gtest.h>

#include "tests/support/Events.h"
#include "tests/support/Strings.h"
#include "tests/ui/EditingFields.h"

namespace {

/// Undo in the platform's own fields.
struct FieldUndo : testing::Test {
  EditingFields fields{[NSTextField class]};

  NSUndoManager *undoManager() { return [fields.editor() undoManager]; }
  std::string edited() { return text([fields.editor() string]); }
};

}  // namespace

TEST_F(FieldUndo, IsAllowedFromTheStartAsOnTheMac) {
  for (Class cls in
       @[ [NSTextFieldCell class], [NSTokenFieldCell class], [NSComboBoxCell class] ]) {
    EXPECT_TRUE([[[[cls alloc] initTextCell:@""] autorelease] allowsUndo]) << text(cls);
  }
  EXPECT_FALSE([[[[NSCell alloc] initTextCell:@""] autorelease] allowsUndo]);
}

TEST_F(FieldUndo, CanBeForbidden) {
  [[fields.other cell] setAllowsUndo:NO];
  fields.edit(fields.other, @"hello", false);
  EXPECT_FALSE([undoManager() canUndo]);
}

TEST_F(FieldUndo, LettersTypedOneAfterTheOtherAreTakenBackTogether) {
  fields.edit(fields.field, @"", false);
  for (NSString *letter in @[ @"a", @"b", @"c" ]) fields.press(0xFFFF, 0, letter);
  ASSERT_EQ(edited(), "abc");
  [undoManager() undo];
  EXPECT_EQ(edited(), "");
}

TEST_F(FieldUndo, ReachesTheFieldsValue) {
  fields.edit(fields.field, @"hello", false);
  [undoManager() undo];
  EXPECT_EQ(text([fields.field stringValue]), "");
}

TEST_F(FieldUndo, BeginsAnewInTheNextField) {
  fields.edit(fields.field, @"a text that is longer than the next", false);
  ASSERT_TRUE([undoManager() canUndo]);
  fields.edit(fields.other, @"", false);
  EXPECT_FALSE([undoManager() canUndo]);
  fields.edit(fields.other, @"next", false);
  [undoManager() undo];
  EXPECT_EQ(edited(), "");
  EXPECT_FALSE([undoManager() canUndo]);
}

TEST_F(FieldUndo, BeginsAnewInTheSameFieldWhenItIsEditedAgain) {
  fields.edit(fields.field, @"hello", false);
  [fields.window makeFirstResponder:fields.button];
  fields.edit(fields.field, @"", false);
  EXPECT_EQ(edited(), "hello");
  EXPECT_FALSE([undoManager() canUndo]);
}

TEST_F(FieldUndo, EndsWithTheEditing) {
  fields.edit(fields.field, @"hello", false);
  [fields.window makeFirstResponder:fields.button];
  EXPECT_FALSE([[fields.window undoManager] canUndo]);
  EXPECT_FALSE([[fields.window undoManager] canRedo]);
}

TEST_F(FieldUndo, EndsWithAValueThatTheProgramSets) {
  fields.edit(fields.field, @"a long text", false);
  [fields.field setStringValue:@"short"];
  EXPECT_FALSE([undoManager() canUndo]);
  EXPECT_EQ(edited(), "short");
}

TEST_F(FieldUndo, EndsAlsoWhenTheValueIsSetInTheEventOfTheChange) {
  fields.edit(fields.field, @"", false);
  [fields.editor() insertText:@"a long text"];
  [fields.editor() setString:@"short"];
  handlePostedEvents();
  EXPECT_FALSE([undoManager() canUndo]);
}
