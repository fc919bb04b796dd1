#include "windows/EditingKeys.h"

#include <gtest/gtest.h>

#import <objc/runtime.h>

#include <vector>

#include "tests/support/Strings.h"
#include "tests/ui/Application.h"
#include "tests/ui/EditingFields.h"
#include "tests/ui/RecordingTextView.h"

/// A view that records whether it was sent a shortcut, as the platform's views send them to
/// subviews.
@interface AskedView : NSView {
 @public
  int timesAsked;
}
@end

@implementation AskedView
- (BOOL)performKeyEquivalent:(NSEvent *)event {
  ++timesAsked;
  return [super performKeyEquivalent:event];
}
@end

/// A window that records whether it was asked for its first responder.
@interface AskedWindow : NSWindow {
 @public
  int timesAsked;
}
@end

@implementation AskedWindow
- (NSResponder *)firstResponder {
  ++timesAsked;
  return [super firstResponder];
}
@end

namespace {

constexpr NSUInteger kAllModifiers[] = {NSAlphaShiftKeyMask, NSShiftKeyMask,
                                        NSControlKeyMask,    NSAlternateKeyMask,
                                        NSNumericPadKeyMask, NSFunctionKeyMask};

/// Every combination of modifiers without Command.
std::vector<NSUInteger> modifierCombinations() {
  std::vector<NSUInteger> combinations = {0};
  for (const NSUInteger modifier : kAllModifiers) {
    const auto shorter = combinations;
    for (const NSUInteger combination : shorter) combinations.push_back(combination | modifier);
  }
  return combinations;
}

NSEvent *command(unsigned short keyCode, NSUInteger others = 0) {
  return keyEvent(NSKeyDown, keyCode, NSCommandKeyMask | others);
}

/// The fields' classes by name.
struct EditingKeys : testing::TestWithParam<const char *> {
  EditingFields fields { NSClassFromString(@(GetParam())) };
  NSTextField *const field = fields.field;
  RecordingTextView *const recordingText =
      [[[RecordingTextView alloc] initWithFrame:NSMakeRect(200, 20, 100, 30)] autorelease];

  /// A text view that is not the field's own becomes the first responder; some of its text is
  /// selected or none.
  void noting(bool hasSelection) {
    [[fields.window contentView] addSubview:recordingText];
    [recordingText setString:@"some text"];
    [fields.window makeFirstResponder:recordingText];
    [recordingText setSelectedRange:NSMakeRange(2, hasSelection ? 3 : 0)];
  }

  void makeUndoable() {
    [recordingText->ownUndoManager registerUndoWithTarget:recordingText
                                                 selector:@selector(recordUndo:)
                                                   object:nil];
  }

  std::string notes() { return text([recordingText->notes componentsJoinedByString:@" "]); }
};

std::string nameOf(const testing::TestParamInfo<const char *> &info) {
  return info.param;
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(Fields, EditingKeys,
                         testing::Values("CustomTextFieldSubclass", "CustomTokenFieldSubClass"),
                         nameOf);

TEST_P(EditingKeys, AreTheOnlyThingThatTheFieldsClassChanges) {
  const Class cls = NSClassFromString(@(GetParam()));
  unsigned methods = 0;
  unsigned variables = 0;
  free(class_copyIvarList(cls, &variables));
  Method *const list = class_copyMethodList(cls, &methods);
  ASSERT_EQ(methods, 1u);
  EXPECT_TRUE(sel_isEqual(method_getName(list[0]), @selector(performKeyEquivalent:)));
  EXPECT_EQ(variables, 0u);
  free(list);
}

TEST_P(EditingKeys, SelectAllCutCopyAndPasteGoToTheTextThatIsEditedFromTheField) {
  noting(true);
  for (const unsigned short key : {kKeyA, kKeyX, kKeyC, kKeyV}) {
    recordingText->lastSender = nil;
    EXPECT_TRUE([field performKeyEquivalent:command(key)]) << key;
    EXPECT_EQ(recordingText->lastSender, field) << key;
  }
  EXPECT_EQ(notes(), "selectAll: cut: copy: paste:");
}

TEST_P(EditingKeys, UndoGoesToTheUndoManagerOfTheTextThatIsEdited) {
  noting(false);
  makeUndoable();
  EXPECT_TRUE([field performKeyEquivalent:command(kKeyZ)]);
  EXPECT_EQ(notes(), "undo");
}

TEST_P(EditingKeys, CommandZWithNothingToUndoIsNotHandled) {
  noting(true);
  EXPECT_FALSE([field performKeyEquivalent:command(kKeyZ)]);
  EXPECT_EQ(notes(), "");
}

TEST_P(EditingKeys, ShiftCommandZUndoesAndDoesNotRedo) {
  noting(false);
  makeUndoable();
  EXPECT_TRUE([field performKeyEquivalent:command(kKeyZ)]);
  EXPECT_FALSE([field performKeyEquivalent:command(kKeyZ, NSShiftKeyMask)]);
  makeUndoable();
  EXPECT_TRUE([field performKeyEquivalent:command(kKeyZ, NSShiftKeyMask)]);
  EXPECT_EQ(notes(), "undo undo");
}

TEST_P(EditingKeys, CutAndCopyNeedASelectionSelectAllAndPasteDoNot) {
  noting(false);
  EXPECT_FALSE([field performKeyEquivalent:command(kKeyX)]);
  EXPECT_FALSE([field performKeyEquivalent:command(kKeyC)]);
  EXPECT_EQ(notes(), "");
  EXPECT_TRUE([field performKeyEquivalent:command(kKeyA)]);
  EXPECT_TRUE([field performKeyEquivalent:command(kKeyV)]);
  EXPECT_EQ(notes(), "selectAll: paste:");
}

TEST_P(EditingKeys, OtherModifiersBesidesCommandDoNotCount) {
  noting(true);
  for (const NSUInteger others : modifierCombinations()) {
    [recordingText->notes removeAllObjects];
    makeUndoable();
    for (const unsigned short key : {kKeyA, kKeyZ, kKeyX, kKeyC, kKeyV}) {
      EXPECT_TRUE([field performKeyEquivalent:command(key, others)]) << key << " " << others;
    }
    EXPECT_EQ(notes(), "selectAll: undo cut: copy: paste:") << others;
  }
}

TEST_P(EditingKeys, EveryOtherKeyIsNotHandledWithWhateverModifiers) {
  noting(true);
  makeUndoable();
  for (unsigned code = 0; code <= 0xFFFF; code += code < 128 ? 1 : 127) {
    const auto key = static_cast<unsigned short>(code);
    if (key == kKeyA || (key >= kKeyZ && key <= kKeyV)) continue;
    for (const NSUInteger others : modifierCombinations()) {
      @autoreleasepool {
        EXPECT_FALSE([field performKeyEquivalent:command(key, others)]) << key << " " << others;
      }
    }
  }
  EXPECT_EQ(notes(), "");
}

TEST_P(EditingKeys, AKeyWithoutCommandIsNotHandledWithWhateverOtherModifiers) {
  noting(true);
  makeUndoable();
  for (unsigned short key = 0; key < 128; ++key) {
    for (const NSUInteger others : modifierCombinations()) {
      @autoreleasepool {
        EXPECT_FALSE([field performKeyEquivalent:keyEvent(NSKeyDown, key, others)]) << key;
      }
    }
  }
  EXPECT_EQ(notes(), "");
}

TEST_P(EditingKeys, ReleasingAKeyAndOtherEventsAreNotHandled) {
  noting(true);
  makeUndoable();
  for (unsigned short key = 0; key < 128; ++key) {
    for (const NSEventType type : {NSKeyUp, NSFlagsChanged}) {
      NSEvent *const event = keyEvent(type, key, NSCommandKeyMask);
      EXPECT_FALSE([field performKeyEquivalent:event]) << key;
    }
  }
  NSEvent *const click = [NSEvent mouseEventWithType:NSLeftMouseDown
                                            location:NSZeroPoint
                                       modifierFlags:NSCommandKeyMask
                                           timestamp:0
                                        windowNumber:[fields.window windowNumber]
                                             context:nil
                                         eventNumber:0
                                          clickCount:1
                                            pressure:1];
  EXPECT_FALSE([field performKeyEquivalent:click]);
  EXPECT_FALSE([field performKeyEquivalent:nil]);
  EXPECT_EQ(notes(), "");
}

TEST_P(EditingKeys, TheFirstResponderIsNotLookedAtForAnythingButAKeyDownWithCommand) {
  AskedWindow *const window = [[[AskedWindow alloc] initWithContentRect:NSMakeRect(0, 0, 100, 100)
                                                              styleMask:NSBorderlessWindowMask
                                                                backing:NSBackingStoreBuffered
                                                                  defer:YES] autorelease];
  [window setReleasedWhenClosed:NO];
  [[window contentView] addSubview:field];
  window->timesAsked = 0;
  [field performKeyEquivalent:keyEvent(NSKeyUp, kKeyA, NSCommandKeyMask)];
  [field performKeyEquivalent:keyEvent(NSKeyDown, kKeyA, NSShiftKeyMask)];
  EXPECT_EQ(window->timesAsked, 0);
  [field performKeyEquivalent:command(kKeyA)];
  EXPECT_EQ(window->timesAsked, 1);
}

TEST_P(EditingKeys, NothingIsHandledWhenTheFirstResponderIsNoText) {
  for (NSResponder *responder in @[ fields.button, [fields.window contentView], fields.window ]) {
    [fields.window makeFirstResponder:responder];
    for (const unsigned short key : {kKeyA, kKeyZ, kKeyX, kKeyC, kKeyV}) {
      EXPECT_FALSE([field performKeyEquivalent:command(key)]) << text(responder) << key;
    }
  }
}

TEST_P(EditingKeys, NothingIsHandledOutsideAWindow) {
  [[field retain] autorelease];
  [field removeFromSuperview];
  for (const unsigned short key : {kKeyA, kKeyZ, kKeyX, kKeyC, kKeyV}) {
    EXPECT_FALSE([field performKeyEquivalent:command(key)]) << key;
  }
}

TEST_P(EditingKeys, TheBaseClassIsNeverAsked) {
  NSTextField *const plain = [[[NSTextField alloc] initWithFrame:[field frame]] autorelease];
  for (NSTextField *asking in @[ plain, field ]) {
    AskedView *const subview = [[[AskedView alloc] initWithFrame:NSZeroRect] autorelease];
    [asking addSubview:subview];
    EXPECT_FALSE([asking performKeyEquivalent:keyEvent(NSKeyDown, kKeyA, 0)]);
    EXPECT_FALSE([asking performKeyEquivalent:command(kKeyS)]);
    EXPECT_EQ(subview->timesAsked, asking == plain ? 2 : 0);
  }
}
