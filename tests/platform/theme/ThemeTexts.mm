#include "tests/platform/theme/Themed.h"

namespace {

struct Texts : Themed, testing::WithParamInterface<const char *> {
  NSString *string() const { return [NSString stringWithUTF8String:GetParam()]; }
};

using Fallback = Themed;

}  // namespace

TEST_P(Texts, ControlsDrawThem) {
  const NSUInteger kTimes = 20;
  NSString *const longer = [@"" stringByPaddingToLength:kTimes * [string() length]
                                             withString:string()
                                        startingAtIndex:0];
  EXPECT_GT(Picture(label(longer)).count(isInk), 10);
  EXPECT_GT(Picture(field(longer)).count(isInk), 10);
  EXPECT_GT(Picture(pushButton(longer)).count(isInk), 10);
  EXPECT_GT(Picture(markable(NSSwitchButton, NSOffState)).count(isInk), 10);
  EXPECT_GT(Picture(popUp(@[ longer ])).count(isInk), 10);
  EXPECT_GT(Picture(tabs(@[ longer, string() ])).count(isInk), 10);
}

INSTANTIATE_TEST_SUITE_P(Japanese, Texts, testing::Values("日本語のテキスト"));
INSTANTIATE_TEST_SUITE_P(Chinese, Texts, testing::Values("简体中文"));
INSTANTIATE_TEST_SUITE_P(Arabic, Texts, testing::Values("النص العربي"));
INSTANTIATE_TEST_SUITE_P(Emoji, Texts, testing::Values("👩‍💻😀🇩🇪"));
INSTANTIATE_TEST_SUITE_P(Combining, Texts, testing::Values("e\u0301\u0323x\u0308"));

TEST_F(Fallback, ScriptsThatTheInterfacesFontLacksAreNotQuestionMarks) {
  const Picture questions(label(@"??"));
  for (NSString *string in @[ @"日本", @"中文", @"عر", @"ไท" ]) {
    EXPECT_NE(Picture(label(string)), questions) << [string UTF8String];
  }
}

TEST_F(Fallback, DifferentCharactersLookDifferent) {
  EXPECT_NE(Picture(label(@"日")), Picture(label(@"本")));
}
