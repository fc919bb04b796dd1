#include <gtest/gtest.h>

#include "tests/support/ChildProcess.h"
#include "tests/support/Strings.h"
#include "tests/ui/Application.h"
#include "tests/ui/ClipboardManager.h"

namespace {

NSPasteboard *general() {
  return [NSPasteboard generalPasteboard];
}

}  // namespace

TEST(Pasteboard, ClearingEmptiesItAndCounts) {
  fillClipboard();
  const NSInteger before = [general() changeCount];
  EXPECT_GT([general() clearContents], before);
  EXPECT_EQ(clipboardText(), nil);
  EXPECT_EQ([[general() types] count], 0u);
}

TEST(Pasteboard, AWrittenStringCanBeRead) {
  [general() clearContents];
  EXPECT_TRUE([general() writeObjects:[NSArray arrayWithObject:@"é 漢 😀\n"]]);
  EXPECT_EQ(text(clipboardText()), "é 漢 😀\n");
}

TEST(Pasteboard, NothingAndWhatIsNoStringAreNotWritten) {
  [general() clearContents];
  EXPECT_FALSE([general() writeObjects:[NSArray array]]);
  EXPECT_FALSE([general() writeObjects:nil]);
  EXPECT_FALSE([general() writeObjects:[NSArray arrayWithObject:@42]]);
  EXPECT_EQ(clipboardText(), nil);
}

TEST(Pasteboard, AProgramThatReadsAtOnceWhateverIsNewGetsTheText) {
  const ClipboardManager manager;
  // Once in four times or so the request reaches the server while that becomes the owner.
  for (int i = 0; i < 20; ++i) {
    const std::string written = "text " + std::to_string(i);
    [general() clearContents];
    EXPECT_TRUE([general() writeObjects:@[ [NSString stringWithUTF8String:written.c_str()] ]]);
    ASSERT_TRUE(waitFor([&] { return manager.text() == written; })) << manager.text();
  }
}

TEST(Pasteboard, AProgramThatReadsAtOnceWhateverIsNewGetsNothingOfAClearedOne) {
  fillClipboard();
  const ClipboardManager manager;
  [general() writeObjects:@[ @"text" ]];
  ASSERT_TRUE(waitFor([&] { return manager.text() == "text"; }));
  [general() clearContents];
  EXPECT_TRUE(waitFor([&] { return manager.text().empty(); }));
}
