#include <gmock/gmock.h>

#include <numeric>

#import "tests/e2e/VendedService.h"
#import "tests/e2e/WindowTest.h"
#import "tests/support/Arguments.h"
#include "tests/support/Thorough.h"

// The clients here are this process: it sends messages that no plug-in would send.

namespace {

using testing::HasSubstr;

const std::string kOwnTitle = "Send or Copy Link";
constexpr NSUInteger kManyCharacters = 100000;

/// The flags of an operation as its bytes on the wire.
struct Flags {
  int first = 0;   // is MyDocs; unused in the share window
  int folder = 0;  // only for the send window
  int tab = 0;
  int fileId = 1;
};

/// What a flag may be on the wire: of those with several bits set only some, unless every case is
/// tested.
std::vector<int> bytes() {
  std::vector<int> found = {0, 1, 2, 4, 8, 16, 32, 64, 128, 3, 127, 129, 254, 255};
  if (isThorough()) {
    found.resize(256);
    std::iota(found.begin(), found.end(), 0);
  }
  return found;
}

/// The type of a flag in the client's declaration: the platform's own BOOL, or that of a client
/// for which BOOL is a signed char.
enum class FlagType : char { Unsigned = 'C', Signed = 'c' };

/// Sends the operation without the checks of the local proxy; returns "", or the name of the
/// exception that came back.
std::string send(SEL selector, NSString *item, NSString *name, const std::vector<int> &flags,
                 FlagType type) {
  const std::string types = "v@:@@" + std::string(flags.size(), static_cast<char>(type));
  NSInvocation *const call = [NSInvocation
      invocationWithMethodSignature:[NSMethodSignature signatureWithObjCTypes:types.c_str()]];
  id const service = vendedService(false);
  if (service == nil) return "no service";
  [call setTarget:service];
  [call setSelector:selector];
  NSInteger index = 2;
  [call setArgument:&item atIndex:index++];
  [call setArgument:&name atIndex:index++];
  for (const int flag : flags) {
    auto byte = static_cast<unsigned char>(flag);
    [call setArgument:&byte atIndex:index++];
  }
  @try {
    [service forwardInvocation:call];
    return "";
  } @catch (NSException *exception) {
    return text([exception name]) + ": " + text([exception reason]);
  }
}

std::string openSend(NSString *item, NSString *name, const Flags &flags,
                     FlagType type = FlagType::Unsigned) {
  @autoreleasepool {
    return send(@selector(LaunchSendCopyLinkTab:: :: ::), item, name,
                {flags.first, flags.folder, flags.tab, flags.fileId}, type);
  }
}

std::string openShare(NSString *item, NSString *name, const Flags &flags,
                      FlagType type = FlagType::Unsigned) {
  @autoreleasepool {
    return send(@selector(LaunchShareFolderTab:: :::), item, name,
                {flags.first, flags.tab, flags.fileId}, type);
  }
}

NSString *repeated(NSString *part, NSUInteger length) {
  return [@"" stringByPaddingToLength:length withString:part startingAtIndex:0];
}

struct WindowArguments : WindowTest {
  /// A picture of the buttons in the window with this title.
  static std::string buttonsIn(const std::string &title) {
    return settledPicture(buttonsOf(onlyWindow(title)));
  }

  /// Presses Return in the only window, which copies the link, and returns the id that the agent
  /// got; "-" when it was not asked.
  NSString *idAtAgentAfterReturn() {
    agent->answer(kFileLink, success(@"https://x/y"));
    if (!waitForWindows(1) || !waitForKeyboard()) return @"-";
    pressKeys({"Return"});
    if (!waitFor([&] { return callsOf(kFileLink) == 1; })) return @"-";
    return [argumentsOf(kFileLink) objectAtIndex:link_operation::kPathOrId];
  }
};

}  // namespace

TEST_F(WindowArguments, APositionWithoutATabShowsTheFirstTabOfTheSendWindow) {
  ASSERT_EQ(openSend(@"id", @"first", {.tab = 0}), "");
  const std::string first = buttonsIn("first");
  for (const int position : {-1, 2, 127, 128, 255}) {
    ASSERT_EQ(openSend(@"id", @"odd", {.tab = position}), "");
    EXPECT_EQ(buttonsIn("odd"), first) << position;
    ASSERT_EQ(openSend(@"id", @"first", {.tab = 0}), "");
  }
  EXPECT_TRUE(serves());
}

TEST_F(WindowArguments, APositionWithoutATabShowsTheFirstTabOfTheShareWindow) {
  ASSERT_EQ(openShare(@"id", nil, {.tab = 0}), "");
  const std::string first = buttonsIn("Share Folder");
  for (const int position : {-1, 2, 127, 128, 255}) {
    ASSERT_EQ(openShare(@"id", nil, {.tab = position}), "");
    EXPECT_EQ(buttonsIn("Share Folder"), first) << position;
  }
  EXPECT_TRUE(serves());
}

TEST_F(WindowArguments, AnEmptyOrMissingNameLeavesTheWindowsOwnTitle) {
  for (NSString *name : {static_cast<NSString *>(nil), @"", @" \n "}) {
    ASSERT_EQ(openSend(@"id", name, {}), "");
    EXPECT_NE(onlyWindow(kOwnTitle).number, "") << text(name);
    ASSERT_EQ(openShare(@"id", name, {}), "");
    EXPECT_NE(onlyWindow("Share Folder").number, "") << text(name);
  }
}

TEST_F(WindowArguments, ANameOfSeveralLinesBecomesATitleOfOne) {
  ASSERT_EQ(openSend(@"id", @"two\nlines.txt", {}), "");
  EXPECT_NE(onlyWindow("two lines.txt").number, "");
}

TEST_F(WindowArguments, ANameInAnyScriptIsTheTitle) {
  for (NSString *name in @[ @"漢字 😀.txt", @"مجلد", @"%@%n%s" ]) {
    ASSERT_EQ(openSend(@"id", name, {}), "");
    EXPECT_NE(onlyWindow(text(name)).number, "") << text(name);
  }
}

TEST_F(WindowArguments, AVeryLongNameIsCutInTheTitle) {
  ASSERT_EQ(openSend(@"id", repeated(@"long", kManyCharacters), {}), "");
  EXPECT_NE(onlyWindow(text(repeated(@"long", 254)) + "…").number, "");
  ASSERT_EQ(openShare(@"id", repeated(@"long", kManyCharacters), {}), "");
  EXPECT_NE(onlyWindow("Share Folder").number, "");
  EXPECT_TRUE(serves());
}

TEST_F(WindowArguments, AVeryLongIdOfSeveralLinesReachesTheAgentWhole) {
  NSString *const item = repeated(@"id\n漢%@", kManyCharacters);
  ASSERT_EQ(openSend(item, @"name", {.tab = 1}), "");
  EXPECT_TRUE([idAtAgentAfterReturn() isEqual:item]);
  EXPECT_TRUE(serves());
}

TEST_F(WindowArguments, AnEmptyIdReachesTheAgentAsOne) {
  ASSERT_EQ(openSend(@"", @"name", {.tab = 1}), "");
  EXPECT_EQ(text(idAtAgentAfterReturn()), "");
}

TEST_F(WindowArguments, AMissingIdReachesTheAgentAsNone) {
  ASSERT_EQ(openSend(nil, @"name", {.tab = 1}), "");
  EXPECT_TRUE([idAtAgentAfterReturn() isEqual:[NSNull null]]);
  EXPECT_TRUE(serves());
}

TEST_F(WindowArguments, AMissingIdOpensTheShareWindow) {
  for (NSString *item : {static_cast<NSString *>(nil), @"", repeated(@"id", kManyCharacters)}) {
    for (const int tab : {0, 1}) {
      ASSERT_EQ(openShare(item, nil, {.tab = tab}), "");
      EXPECT_NE(onlyWindow("Share Folder").number, "");
    }
  }
  EXPECT_TRUE(serves());
}

TEST_F(WindowArguments, AnyByteButZeroIsAFlagThatIsSet) {
  for (const int byte : {1, 2, 127, 128, 254, 255}) {
    ASSERT_EQ(openSend(@"id", @"name", {.first = byte}), "");
    EXPECT_NE(onlyWindow("MyDocs").number, "") << byte;
  }
  ASSERT_EQ(openSend(@"id", @"name", {.first = 0}), "");
  EXPECT_NE(onlyWindow("name").number, "");
}

TEST_F(WindowArguments, AnyByteInEveryFlagOpensTheSendWindow) {
  for (const int byte : bytes()) {
    const Flags flags = {.first = byte, .folder = byte, .tab = byte, .fileId = byte};
    ASSERT_EQ(openSend(@"id", @"name", flags), "") << byte;
  }
  EXPECT_NE(onlyWindow("MyDocs").number, "");
  EXPECT_TRUE(serves());
}

TEST_F(WindowArguments, AnyByteInEveryFlagOpensTheShareWindow) {
  for (const int byte : bytes()) {
    ASSERT_EQ(openShare(@"id", nil, {.first = byte, .tab = byte, .fileId = byte}), "") << byte;
  }
  EXPECT_NE(onlyWindow("Share Folder").number, "");
  EXPECT_TRUE(serves());
}

TEST_F(WindowArguments, AClientThatDeclaresItsFlagsOtherwiseIsRefusedAndTheNextOneIsServed) {
  const Flags flags = {.first = -1, .folder = -1, .tab = -1, .fileId = -1};
  EXPECT_THAT(openSend(@"id", @"name", flags, FlagType::Signed), HasSubstr("mismatch"));
  EXPECT_THAT(openShare(@"id", @"name", flags, FlagType::Signed), HasSubstr("mismatch"));
  EXPECT_TRUE(windowsOnScreen().empty());
  ASSERT_EQ(openSend(@"id", @"name", {}), "");
  EXPECT_NE(onlyWindow("name").number, "");
}
