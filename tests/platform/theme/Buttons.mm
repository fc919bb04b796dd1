#include "tests/platform/theme/Themed.h"

using theme::Rgb;

namespace {

struct Buttons : Themed {
  static Picture disabled(NSButton *button) {
    [button setEnabled:NO];
    return Picture(button);
  }

  static Picture pressed(NSButton *button) {
    [[button cell] setHighlighted:YES];
    return Picture(button);
  }

  Picture focused(NSButton *button) {
    EXPECT_TRUE(focus(button));
    return Picture(button);
  }
};

/// Check boxes and radio buttons.
struct Markable : Buttons, testing::WithParamInterface<NSButtonType> {
  NSButton *button(NSInteger state) { return markable(GetParam(), state); }
};

}  // namespace

TEST_F(Buttons, ADefaultButtonIsFilledWithTheAccentColour) {
  const Picture picture(defaultButton(@"Send"));
  EXPECT_GT(picture.count(theme::kAccent), picture.width() * picture.height() / 3);
}

TEST_F(Buttons, TheTitleOfADefaultButtonIsWhite) {
  const NSRect inside = NSMakeRect(12, 8, 72, 16);
  EXPECT_EQ(Picture(defaultButton(@""), inside).count(isWhitish), 0);
  const Picture title(defaultButton(@"Send"), inside);
  EXPECT_GT(title.count(isWhitish), 20);
  EXPECT_EQ(title.count(isInk), 0);
}

TEST_F(Buttons, AnyOtherButtonIsWhiteWithADarkTitle) {
  const Picture picture(pushButton(@"Cancel"));
  EXPECT_EQ(picture.count(isBluish), 0);
  EXPECT_GT(picture.count(theme::kButton), picture.width() * picture.height() / 3);
  EXPECT_GT(picture.count(isInk), 10);
}

TEST_F(Buttons, AReturnKeyAddsNoPicture) {
  EXPECT_EQ([defaultButton(@"Send") image], nil);
}

TEST_F(Buttons, APressedButtonIsDarker) {
  EXPECT_TRUE(pressed(pushButton(@"Cancel")).shows(theme::kButtonPressed));
  EXPECT_TRUE(pressed(defaultButton(@"Send")).shows(theme::kAccentPressed));
}

TEST_F(Buttons, ADisabledButtonIsPale) {
  const Picture plain = disabled(pushButton(@"Cancel"));
  EXPECT_TRUE(plain.shows(theme::kButtonDisabled));
  EXPECT_EQ(plain.count(isInk), 0);
  const Picture preset = disabled(defaultButton(@"Send"));
  EXPECT_TRUE(preset.shows(theme::kAccentDisabled));
  EXPECT_FALSE(preset.shows(theme::kAccent));
}

TEST_F(Buttons, AButtonWithTheKeyboardHasARing) {
  NSButton *const button = pushButton(@"Cancel");
  EXPECT_EQ(Picture(button).count(isBluish), 0);
  EXPECT_GT(focused(button).count(isBluish), 100);
}

TEST_F(Buttons, NothingIsDrawnAtTheEdgeOfAButtonsFrame) {
  NSButton *const button = pushButton(@"Cancel");
  const Picture picture = focused(button);
  for (int x = 0; x < picture.width(); ++x) {
    EXPECT_EQ(picture.at(x, 0), theme::kWindow) << x;
    EXPECT_EQ(picture.at(x, picture.height() - 1), theme::kWindow) << x;
  }
}

TEST_F(Buttons, TheTitleOfAPressedButtonStaysInItsPlace) {
  NSButtonCell *const cell = [pushButton(@"Cancel") cell];
  const NSRect bounds = NSMakeRect(0, 0, 96, 32);
  const NSRect before = [cell drawingRectForBounds:bounds];
  [cell setHighlighted:YES];
  EXPECT_TRUE(NSEqualRects([cell drawingRectForBounds:bounds], before));
}

TEST_P(Markable, OnIsMarkedInTheAccentColourAndOffIsNot) {
  EXPECT_EQ(Picture(button(NSOffState)).count(isBluish), 0);
  EXPECT_GT(Picture(button(NSOnState)).count(theme::kAccent), 50);
}

TEST_P(Markable, EveryStateLooksDifferent) {
  const Picture pictures[] = {
      Picture(button(NSOffState)), Picture(button(NSOnState)),  disabled(button(NSOffState)),
      disabled(button(NSOnState)), pressed(button(NSOffState)), pressed(button(NSOnState)),
      focused(button(NSOffState)), focused(button(NSOnState)),
  };
  for (const Picture &one : pictures) {
    for (const Picture &other : pictures) EXPECT_EQ(one == other, &one == &other);
  }
}

TEST_P(Markable, ItsLabelIsDarkAndWhenDisabledPale) {
  NSButton *const mark = button(NSOffState);
  EXPECT_GT(Picture(mark).count(isInk), 10);
  EXPECT_EQ(disabled(mark).count(isInk), 0);
}

TEST_P(Markable, TheRingGoesRoundTheMarkAndNotRoundTheLabel) {
  NSButton *const mark = button(NSOffState);
  EXPECT_GT(focused(mark).count(isBluish), 20);
  constexpr double kLabelStart = 22;
  const Picture label(mark, NSMakeRect(kLabelStart, 0, 120 - kLabelStart, 18));
  EXPECT_EQ(label.count(isBluish), 0);
}

INSTANTIATE_TEST_SUITE_P(CheckBox, Markable, testing::Values(NSSwitchButton));
INSTANTIATE_TEST_SUITE_P(Radio, Markable, testing::Values(NSRadioButton));

TEST_F(Buttons, AMixedCheckBoxIsNeitherOnNorOff) {
  const Picture mixed(markable(NSSwitchButton, NSMixedState));
  EXPECT_GT(mixed.count(theme::kAccent), 50);
  EXPECT_NE(mixed, Picture(markable(NSSwitchButton, NSOnState)));
}
