#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "tests/support/ChildProcess.h"
#include "tests/support/Events.h"
#include "tests/support/Strings.h"
#include "tests/ui/Application.h"
#include "tests/ui/EditingFields.h"

/// A view that keeps the key-downs that it gets.
@interface KeyRecordingView : NSView {
 @public
  NSMutableArray *events;
}
@end

@implementation KeyRecordingView

- (id)initWithFrame:(NSRect)frame {
  self = [super initWithFrame:frame];
  events = [[NSMutableArray alloc] init];
  return self;
}

- (void)dealloc {
  [events release];
  [super dealloc];
}

- (BOOL)acceptsFirstResponder {
  return YES;
}

- (void)keyDown:(NSEvent *)event {
  [events addObject:event];
}

@end

namespace {

/// Runs a program of the window system to its end. No event is dispatched meanwhile: the run loop
/// collects all ended children, and the exit code would be lost.
void run(const std::vector<std::string> &command) {
  std::vector<std::string> arguments = {"/usr/bin/env"};
  arguments.insert(arguments.end(), command.begin(), command.end());
  ChildProcess program(arguments);
  ASSERT_EQ(program.waitForEnd(), 0) << program.output();
}

/// A keyboard layout of the window server while one of these lives. Keys are pressed by the
/// server's code, that is, by their place: 38 is the key where an ANSI keyboard has A.
class Layout {
 public:
  explicit Layout(const std::string &name) { run({"setxkbmap", name}); }
  ~Layout() { run({"setxkbmap", "us"}); }
  Layout(const Layout &) = delete;
  Layout &operator=(const Layout &) = delete;

  static void press(const std::string &keys) { run({"xdotool", "key", keys}); }
};

/// The key events that a view gets.
struct TypedKeys : testing::Test {
  Layout us{"us"};
  EditingFields fields{[NSTextField class]};
  KeyRecordingView *const recorder =
      [[[KeyRecordingView alloc] initWithFrame:NSMakeRect(200, 20, 20, 20)] autorelease];

  TypedKeys() {
    [[fields.window contentView] addSubview:recorder];
    [fields.window makeFirstResponder:recorder];
  }

  /// The key-down that pressing the keys together ends with, nil when there is none.
  NSEvent *pressed(const std::string &keys) {
    [recorder->events removeAllObjects];
    Layout::press(keys);
    handleEventsUntil([&] { return [recorder->events count] > 0; });
    return [recorder->events lastObject];
  }
};

/// A field's class and a layout.
struct TypedShortcuts : testing::TestWithParam<std::tuple<const char *, const char *>> {
  EditingFields fields { NSClassFromString(@(std::get<0>(GetParam()))) };
  Layout layout{std::get<1>(GetParam())};

  TypedShortcuts() { fillClipboard(); }

  bool becomesEdited(const char *expected) {
    return handleEventsUntil([&] { return text([fields.editor() string]) == expected; });
  }

  bool becomesSelected(NSUInteger length) {
    return handleEventsUntil([&] { return [fields.editor() selectedRange].length == length; });
  }

  bool becomesClipboard(const char *expected) {
    return handleEventsUntil([&] { return text(clipboardText()) == expected; });
  }
};

std::string nameOf(const testing::TestParamInfo<TypedShortcuts::ParamType> &info) {
  std::string name = std::string(std::get<0>(info.param)) + "_" + std::get<1>(info.param);
  std::erase_if(name, [](char character) { return character == '(' || character == ')'; });
  return name;
}

}  // namespace

TEST_F(TypedKeys, HaveTheMacsCodes) {
  EXPECT_EQ([pressed("38") keyCode], 0);
  EXPECT_EQ([pressed("55") keyCode], 9);
  EXPECT_EQ([pressed("Return") keyCode], 36);
  EXPECT_EQ([pressed("Escape") keyCode], 53);
  EXPECT_EQ([pressed("Left") keyCode], 123);
  EXPECT_EQ([pressed("F5") keyCode], 96);
}

TEST_F(TypedKeys, WithCodesThatTheMacDoesNotKnowMeanNothing) {
  // The media key for the next track.
  EXPECT_EQ([pressed("171") keyCode], 0xFFFF);
}

TEST_F(TypedKeys, KeepTheirCodesUnderALayoutThatMovesLetters) {
  const Layout french("fr");
  EXPECT_EQ(text([pressed("38") characters]), "q");
  EXPECT_EQ([[recorder->events lastObject] keyCode], 0);
  EXPECT_EQ(text([pressed("24") characters]), "a");
  EXPECT_EQ([[recorder->events lastObject] keyCode], 12);
}

TEST_F(TypedKeys, LeaveTheCodesOfEventsThatTheProgramMakesAlone) {
  for (unsigned short code = 0; code < 256; ++code) {
    ASSERT_EQ([keyEvent(NSKeyDown, code, 0) keyCode], code);
  }
  fields.press(38, 0, @"a");
  EXPECT_EQ([[recorder->events lastObject] keyCode], 38);
}

TEST_F(TypedKeys, WithControlAreCommands) {
  for (const char *keys : {"Control_L+54", "Control_R+54"}) {
    NSEvent *const event = pressed(keys);
    EXPECT_TRUE([event modifierFlags] & NSCommandKeyMask) << keys;
    EXPECT_FALSE([event modifierFlags] & NSControlKeyMask) << keys;
  }
}

TEST_F(TypedKeys, WithTheWindowsKeyOrAltHaveControlOrAlternate) {
  for (const char *keys : {"Super_L+54", "Super_R+54"}) {
    EXPECT_EQ([pressed(keys) modifierFlags], NSUInteger { NSControlKeyMask }) << keys;
  }
  for (const char *keys : {"Alt_L+54", "Alt_R+54"}) {
    EXPECT_EQ([pressed(keys) modifierFlags], NSUInteger { NSAlternateKeyMask }) << keys;
  }
}

TEST_F(TypedKeys, WithControlHaveThePlainLettersAndDigits) {
  const std::pair<const char *, const char *> keys[] = {
      {"ctrl+38", "a"}, {"ctrl+54", "c"}, {"ctrl+58", "m"}, {"ctrl+31", "i"}, {"ctrl+34", "["},
      {"ctrl+11", "2"}, {"ctrl+12", "3"}, {"ctrl+17", "8"}, {"ctrl+65", " "}};
  for (const auto &[key, character] : keys) {
    NSEvent *const event = pressed(key);
    EXPECT_EQ(text([event charactersIgnoringModifiers]), character);
    EXPECT_EQ(text([event characters]), character);
  }
}

TEST_F(TypedKeys, WithControlThatWriteNothingStayWhatTheyAre) {
  EXPECT_EQ(text([pressed("ctrl+Return") characters]), "\r");
  EXPECT_EQ(text([pressed("ctrl+BackSpace") characters]), "\x7f");
  EXPECT_EQ([[pressed("ctrl+Left") characters] characterAtIndex:0], NSLeftArrowFunctionKey);
}

TEST_F(TypedKeys, WriteWhatTheLayoutSays) {
  for (const char *name : {"us", "fr", "us(dvorak)", "de"}) {
    fields.edit(fields.field, @"", false);
    const Layout layout(name);
    run({"xdotool", "type", "--delay", "0", "Az1-@"});
    handleEventsUntil([&] { return [[fields.editor() string] length] >= 5; });
    EXPECT_EQ(text([fields.editor() string]), "Az1-@") << name;
    [fields.editor() setString:@""];
  }
}

TEST_F(TypedKeys, WithControlReachTheMainMenu) {
  NSMenu *const former = [[[NSApp mainMenu] retain] autorelease];
  NSMenu *const menu = [[[NSMenu alloc] initWithTitle:@""] autorelease];
  NSMenu *const edit = [[[NSMenu alloc] initWithTitle:@"Edit"] autorelease];
  [edit addItemWithTitle:@"Copy" action:@selector(copy:) keyEquivalent:@"c"];
  [edit addItemWithTitle:@"Paste" action:@selector(paste:) keyEquivalent:@"v"];
  [menu setSubmenu:edit forItem:[menu addItemWithTitle:@"Edit" action:nullptr keyEquivalent:@""]];
  [NSApp setMainMenu:menu];
  fillClipboard();
  fields.edit(fields.field, @"hello", true);
  Layout::press("ctrl+54");
  EXPECT_TRUE(handleEventsUntil([] { return text(clipboardText()) == "hello"; }));
  [fields.editor() setSelectedRange:NSMakeRange(5, 0)];
  Layout::press("ctrl+55");
  EXPECT_TRUE(handleEventsUntil([&] { return text([fields.editor() string]) == "hellohello"; }));
  [NSApp setMainMenu:former];
}

INSTANTIATE_TEST_SUITE_P(Fields, TypedShortcuts,
                         testing::Combine(testing::Values("CustomTextFieldSubclass",
                                                          "CustomTokenFieldSubClass"),
                                          testing::Values("us", "fr", "us(dvorak)", "ru")),
                         nameOf);

TEST_P(TypedShortcuts, ControlAByItsPlaceSelectsAll) {
  fields.edit(fields.field, @"hello", false);
  Layout::press("ctrl+38");
  EXPECT_TRUE(becomesSelected(5));
}

TEST_P(TypedShortcuts, ShiftControlASelectsAllToo) {
  fields.edit(fields.field, @"hello", false);
  Layout::press("shift+ctrl+38");
  EXPECT_TRUE(becomesSelected(5));
}

TEST_P(TypedShortcuts, ControlCAndControlVCopyAndPaste) {
  fields.edit(fields.field, @"hello", true);
  Layout::press("ctrl+54");
  EXPECT_TRUE(becomesClipboard("hello"));
  [fields.editor() setSelectedRange:NSMakeRange(5, 0)];
  Layout::press("ctrl+55");
  EXPECT_TRUE(becomesEdited("hellohello"));
}

TEST_P(TypedShortcuts, ControlXCutsAndControlZTakesItBack) {
  fields.edit(fields.field, @"hello", true);
  Layout::press("ctrl+53");
  EXPECT_TRUE(becomesClipboard("hello"));
  EXPECT_TRUE(becomesEdited(""));
  Layout::press("ctrl+52");
  EXPECT_TRUE(becomesEdited("hello"));
}

TEST_P(TypedShortcuts, ControlZTakesBackWhatWasTyped) {
  fields.edit(fields.field, @"", false);
  // The space bar types the same character in every layout.
  for (int i = 0; i < 3; ++i) Layout::press("65");
  ASSERT_TRUE(handleEventsUntil([&] { return [[fields.editor() string] length] == 3; }));
  Layout::press("ctrl+52");
  EXPECT_TRUE(becomesEdited(""));
}

TEST_P(TypedShortcuts, AControlKeyThatIsNoShortcutWritesNothing) {
  fields.edit(fields.field, @"hello", false);
  for (const char *key : {"ctrl+56", "ctrl+57", "ctrl+53", "ctrl+54"}) Layout::press(key);
  Layout::press("ctrl+38");
  EXPECT_TRUE(becomesSelected(5));
  EXPECT_EQ(text([fields.editor() string]), "hello");
}
