#include <gtest/gtest.h>

#include "tests/support/Strings.h"
#include "tests/ui/Application.h"

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
