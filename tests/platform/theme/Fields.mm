#include "tests/platform/theme/Themed.h"

namespace {

struct Fields : Themed {};

}  // namespace

TEST_F(Fields, AFieldIsWhiteWithALineRoundIt) {
  const Picture picture(field(@""));
  EXPECT_TRUE(picture.shows(theme::kLine));
  EXPECT_EQ(picture.at(80, 0), theme::kLine);
  EXPECT_EQ(picture.at(80, 1), theme::kSurface);
  EXPECT_EQ(picture.at(80, 21), theme::kLine);
  EXPECT_EQ(picture.count(isBluish), 0);
}

TEST_F(Fields, AFieldWithTheKeyboardHasABlueLineOnAllSides) {
  NSTextField *const name = field(@"");
  ASSERT_TRUE(focus(name));
  const Picture picture(name);
  for (int x : {0, 159}) EXPECT_TRUE(isBluish(picture.at(x, 11))) << x;
  for (int y : {0, 21}) EXPECT_TRUE(isBluish(picture.at(80, y))) << y;
}

TEST_F(Fields, TheLineIsDrawnAnewWhenTheKeyboardComesAndGoes) {
  NSTextField *const name = field(@"");
  const Picture before(name);
  ASSERT_TRUE(focus(name));
  EXPECT_TRUE(isBluish(Picture::onScreen(name).at(80, 0)));
  ASSERT_TRUE([window makeFirstResponder:nil]);
  EXPECT_EQ(Picture::onScreen(name), before);
}

TEST_F(Fields, ADisabledFieldIsPale) {
  NSTextField *const name = field(@"Anna");
  EXPECT_GT(Picture(name).count(isInk), 10);
  [name setEnabled:NO];
  const Picture picture(name);
  EXPECT_EQ(picture.count(isInk), 0);
  EXPECT_EQ(picture.at(80, 0), theme::kLineDisabled);
}

TEST_F(Fields, ADisabledFieldWithoutATextIsDrawn) {
  NSTextField *const name = field(@"");
  [name setEnabled:NO];
  EXPECT_TRUE(Picture(name).shows(theme::kLineDisabled));
}

TEST_F(Fields, APlaceholderIsGreyAndOnlyThereWithoutAText) {
  NSTextField *const name = field(@"");
  const Picture without(name);
  [[name cell] setPlaceholderString:@"Name"];
  const Picture with(name);
  EXPECT_NE(with, without);
  EXPECT_EQ(with.count(isInk), 0);
  [name setStringValue:@"Anna"];
  EXPECT_GT(Picture(name).count(isInk), 10);
  [name setStringValue:@""];
  EXPECT_EQ(Picture(name), with);
}

TEST_F(Fields, ALabelIsDarkAndWhenDisabledGrey) {
  NSTextField *const name = label(@"Recipients");
  EXPECT_GT(Picture(name).count(isInk), 10);
  EXPECT_EQ(Picture(name).at(80, 0), theme::kWindow);
  [name setEnabled:NO];
  EXPECT_EQ(Picture(name).count(isInk), 0);
  EXPECT_TRUE(Picture(name).shows(theme::kTextDisabled));
}

TEST_F(Fields, ATextViewHasALineThatTurnsBlueWithTheKeyboard) {
  NSTextView *const text = textView();
  NSScrollView *const scroll = [text enclosingScrollView];
  const Picture before(scroll);
  EXPECT_EQ(before.at(100, 0), theme::kLine);
  ASSERT_TRUE(focus(text));
  EXPECT_TRUE(isBluish(Picture::onScreen(scroll).at(100, 0)));
  ASSERT_TRUE([window makeFirstResponder:nil]);
  EXPECT_EQ(Picture::onScreen(scroll), before);
}

TEST_F(Fields, TheScrollerIsAtTheRight) {
  NSScrollView *const scroll = [textView() enclosingScrollView];
  EXPECT_GT(NSMinX([[scroll verticalScroller] frame]), NSMaxX([[scroll contentView] frame]) - 1);
}

TEST_F(Fields, ABoxHasALineWithItsTitleOnIt) {
  NSBox *const box = show([[NSBox alloc] initWithFrame:NSMakeRect(20, 20, 200, 100)]);
  [box setTitle:@"Options"];
  const Picture picture(box);
  EXPECT_TRUE(picture.shows(theme::kBoxLine));
  EXPECT_TRUE(picture.shows(theme::kBox));
  EXPECT_GT(picture.count(isInk), 10);
}
