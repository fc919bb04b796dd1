#include <signal.h>

#include <fstream>

#include "platform/gnustep/pasteboard/LargeSelection.h"
#import "tests/ui/WindowFixtures.h"

// Texts that other programs send in parts, which the pasteboard's server cannot receive.

namespace {

constexpr std::size_t kMegabyte = 1024 * 1024;

/// Another program that has put a text on the clipboard, and keeps it there while it lives.
class OtherProgram {
 public:
  explicit OtherProgram(const std::string &text) : program_(command(text)) {
    // Its first output says that it waits for requests.
    EXPECT_TRUE(program_.waitForOutput("Waiting for"));
    // The pasteboard's server is notified some time after that.
    EXPECT_TRUE(waitFor([&] { return changes() != changesBefore_; }));
  }

  void stop() const { program_.signal(SIGSTOP); }
  void resume() const { program_.signal(SIGCONT); }

 private:
  static std::vector<std::string> command(const std::string &text) {
    const std::string file = newTemporaryFolder() + "/text";
    std::ofstream(file) << text;
    return {"/usr/bin/xclip", "-verbose", "-selection", "clipboard", "-in", file};
  }

  static NSInteger changes() { return [[NSPasteboard generalPasteboard] changeCount]; }

  NSInteger changesBefore_ = changes();
  ChildProcess program_;
};

/// Text of this many bytes, of which each part looks different.
std::string textOf(std::size_t bytes) {
  std::string all;
  while (all.size() < bytes) all += std::to_string(all.size()) + " ";
  return all.substr(0, bytes);
}

struct LargeClipboard : testing::TestWithParam<std::size_t> {
  LargeClipboard() { EXPECT_TRUE(fillClipboard()); }
};

std::string sizeName(const testing::TestParamInfo<std::size_t> &info) {
  return std::to_string(info.param);
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(Bytes, LargeClipboard,
                         testing::Values(kMegabyte - 1, kMegabyte, kMegabyte + 1, 4 * kMegabyte),
                         sizeName);

TEST_P(LargeClipboard, TextOfAnotherProgramIsPastedWhole) {
  const std::string whole = textOf(GetParam());
  const OtherProgram other(whole);
  NSTextView *const editor =
      [[[NSTextView alloc] initWithFrame:NSMakeRect(0, 0, 100, 20)] autorelease];
  [editor paste:nil];
  EXPECT_TRUE(text([editor string]) == whole) << [[editor string] length];
}

TEST_P(LargeClipboard, TheNextCopyWorks) {
  {
    const OtherProgram other(textOf(GetParam()));
    EXPECT_EQ([clipboardText() length], GetParam());
  }
  CopyLinkController *const controller = [[[CopyLinkController alloc] init] autorelease];
  EXPECT_EQ(text([controller pasteToClipboard:success(@"https://x/y")]), "0");
  EXPECT_EQ(text(clipboardText()), "https://x/y");
}

TEST_P(LargeClipboard, ACopiedTextReachesOtherProgramsWhole) {
  const std::string whole = textOf(GetParam());
  NSTextView *const editor =
      [[[NSTextView alloc] initWithFrame:NSMakeRect(0, 0, 100, 20)] autorelease];
  [editor setString:[NSString stringWithUTF8String:whole.c_str()]];
  [editor selectAll:nil];
  [editor copy:nil];
  ChildProcess reader({"/usr/bin/xclip", "-selection", "clipboard", "-out"});
  EXPECT_EQ(reader.waitForEnd(), 0);
  EXPECT_TRUE(reader.output() == whole) << reader.output().size();
}

TEST(SlowClipboardOwner, KeepsWhatItHasWhenItsAnswerComesTooLate) {
  ASSERT_TRUE(fillClipboard());
  const OtherProgram other("text");
  other.stop();
  EXPECT_EQ(largeSelection(nullptr, "CLIPBOARD", 0.2).kind, LargeSelection::Kind::Broken);
  other.resume();
  // It replies in the order of the requests.
  EXPECT_TRUE(waitFor([] { return [clipboardText() isEqualToString:@"text"]; }));
}

TEST(HangingClipboardOwner, IsNothingToPasteAndStopsNoCopy) {
  ASSERT_TRUE(fillClipboard());
  const OtherProgram other("text");
  other.stop();
  EXPECT_EQ(clipboardText(), nil);
  CopyLinkController *const controller = [[[CopyLinkController alloc] init] autorelease];
  const CapturedLog log;
  [controller pasteToClipboard:success(@"https://x/y")];
  EXPECT_EQ(log.lines(), std::vector<std::string>{"copy success = 1"});
  EXPECT_EQ(text(clipboardText()), "https://x/y");
}
