#import "platform/gnustep/alerts/AlertIcon.h"
#import "tests/platform/alerts/AlertTest.h"

namespace {

constexpr CGFloat kIconSide = 64;

NSImageRep *square(NSInteger side, NSColor *color) {
  NSBitmapImageRep *const bitmap =
      [[[NSBitmapImageRep alloc] initWithBitmapDataPlanes:nullptr
                                               pixelsWide:side
                                               pixelsHigh:side
                                            bitsPerSample:8
                                          samplesPerPixel:4
                                                 hasAlpha:YES
                                                 isPlanar:NO
                                           colorSpaceName:NSCalibratedRGBColorSpace
                                              bytesPerRow:0
                                             bitsPerPixel:0] autorelease];
  for (NSInteger y = 0; y < side; ++y) {
    for (NSInteger x = 0; x < side; ++x) [bitmap setColor:color atX:x y:y];
  }
  return bitmap;
}

NSImage *imageWith(NSArray *representations) {
  NSImage *const image = [[[NSImage alloc] initWithSize:NSMakeSize(32, 32)] autorelease];
  [image addRepresentations:representations];
  return image;
}

NSString *repeated(NSString *string, NSUInteger times) {
  if (times == 0) return @"";
  return [@"" stringByPaddingToLength:[string length] * times withString:string startingAtIndex:0];
}

struct AlertLooks : AlertTest {
  AlertIcon *icon() { return [viewsOfClass(panel(), [AlertIcon class]) objectAtIndex:0]; }

  NSTextField *shownText(NSUInteger index) {
    return [viewsOfClass(panel(), [NSTextField class]) objectAtIndex:index];
  }

  NSRect frameIn(NSView *view) {
    return [view convertRect:[view bounds] toView:[panel() contentView]];
  }

  /// The colour in the centre of the icon.
  NSColor *drawnColor() {
    [panel() display];
    [icon() lockFocus];
    NSBitmapImageRep *const bitmap =
        [[[NSBitmapImageRep alloc] initWithFocusedViewRect:[icon() bounds]] autorelease];
    [icon() unlockFocus];
    return [bitmap colorAtX:kIconSide / 2 y:kIconSide / 2];
  }

  /// Shows the alert both as a sheet and modally.
  void expectUsable() {
    begin();
    handlePostedEvents();
    EXPECT_TRUE(isOnScreen(panel())) << NSStringFromRect([panel() frame]);
    for (NSButton *own in [alert buttons])
      EXPECT_TRUE(isReachable(own)) << [[own title] UTF8String];
    postClick(button(0));
    handlePostedEvents();
    ASSERT_EQ(delegate->ends.size(), 1u);
    const ModalUser user({[this](NSWindow *window) {
      EXPECT_TRUE(isOnScreen(window)) << NSStringFromRect([window frame]);
      postClick(button(0));
    }});
    EXPECT_EQ([alert runModal], NSAlertFirstButtonReturn);
    EXPECT_FALSE(user.hadToAbort());
  }
};

struct HardText {
  const char *name;
  const char *unit;
  NSUInteger times;
};

struct HardTexts : AlertLooks, testing::WithParamInterface<HardText> {
  NSString *hardText() const {
    return repeated([NSString stringWithUTF8String:GetParam().unit], GetParam().times);
  }
};

}  // namespace

TEST_F(AlertLooks, TheFirstButtonStandsAtTheRightAndIsTheDefaultOne) {
  [alert addButtonWithTitle:@"One"];
  [alert addButtonWithTitle:@"Two"];
  [alert addButtonWithTitle:@"Three"];
  begin();
  const CGFloat width = NSWidth([[panel() contentView] bounds]);
  EXPECT_EQ(NSMaxX(frameIn(button(0))), width - 20);
  EXPECT_LT(NSMaxX(frameIn(button(1))), NSMinX(frameIn(button(0))));
  EXPECT_LT(NSMaxX(frameIn(button(2))), NSMinX(frameIn(button(1))));
  EXPECT_EQ([panel() defaultButtonCell], [button(0) cell]);
  EXPECT_EQ([panel() firstResponder], button(0));
}

TEST_F(AlertLooks, TheIconStandsAtTheLeft) {
  begin();
  const NSRect frame = frameIn(icon());
  EXPECT_EQ(NSMinX(frame), 24);
  EXPECT_EQ(NSWidth(frame), kIconSide);
  EXPECT_EQ(NSHeight(frame), kIconSide);
}

TEST_F(AlertLooks, TheMessageIsBoldAboveTheSmallerInformation) {
  [alert setMessageText:@"Message"];
  [alert setInformativeText:@"Information"];
  begin();
  EXPECT_EQ([[shownText(0) font] pointSize], 13);
  EXPECT_EQ([[shownText(1) font] pointSize], 11);
  EXPECT_EQ([[shownText(0) font] fontName], [[NSFont boldSystemFontOfSize:13] fontName]);
  EXPECT_GE(NSMinY(frameIn(shownText(0))), NSMaxY(frameIn(shownText(1))));
  EXPECT_GT(NSMinX(frameIn(shownText(0))), NSMaxX(frameIn(icon())));
}

TEST_F(AlertLooks, ALongMessageTakesMoreLines) {
  [alert setMessageText:@"Short"];
  const CGFloat former = NSHeight([panel() frame]);
  NSAlert *const longer = [[[NSAlert alloc] init] autorelease];
  [longer setMessageText:repeated(@"many words ", 60)];
  EXPECT_GT(NSHeight([[longer window] frame]), former + 50);
}

TEST_F(AlertLooks, ATallTextScrolls) {
  [alert setInformativeText:repeated(@"line\n", 60)];
  begin();
  NSArray *const scrollViews = viewsOfClass(panel(), [NSScrollView class]);
  ASSERT_EQ([scrollViews count], 1u);
  NSScrollView *const scrollView = [scrollViews objectAtIndex:0];
  EXPECT_GT(NSHeight([[scrollView documentView] frame]), NSHeight([scrollView frame]));
}

TEST_F(AlertLooks, WithoutAnIconItShowsTheApplications) {
  [NSApp setApplicationIconImage:imageWith(@[ square(64, [NSColor greenColor]) ])];
  begin();
  EXPECT_GT([drawnColor() greenComponent], 0.9);
  EXPECT_LT([drawnColor() redComponent], 0.1);
}

TEST_F(AlertLooks, AnIconOfSeveralSizesShowsTheOneWithEnoughPixels) {
  [alert setIcon:imageWith(@[
           square(16, [NSColor redColor]), square(128, [NSColor blueColor]),
           square(32, [NSColor redColor]), square(256, [NSColor redColor])
         ])];
  begin();
  EXPECT_GT([drawnColor() blueComponent], 0.9);
  EXPECT_LT([drawnColor() redComponent], 0.1);
}

TEST_F(AlertLooks, AnIconThatIsTooSmallIsEnlarged) {
  NSImage *const image =
      imageWith(@[ square(16, [NSColor redColor]), square(32, [NSColor blueColor]) ]);
  EXPECT_EQ([[AlertIcon representationOf:image forPixels:64] pixelsWide], 32);
  [alert setIcon:image];
  begin();
  EXPECT_GT([drawnColor() blueComponent], 0.9);
}

TEST_F(AlertLooks, AnIconFileOfSeveralSizesIsReadWhole) {
  NSString *const path = [[NSBundle mainBundle] pathForResource:@"sizes" ofType:@"icns"];
  NSImage *const image = [[[NSImage alloc] initWithContentsOfFile:path] autorelease];
  [alert setIcon:image];
  begin();
  EXPECT_GT([drawnColor() blueComponent], 0.9);
  EXPECT_LT([drawnColor() redComponent], 0.1);
}

TEST_F(AlertLooks, AnImageWithoutRepresentationsDrawsNothing) {
  [alert setIcon:[[[NSImage alloc] initWithSize:NSMakeSize(64, 64)] autorelease]];
  begin();
  EXPECT_NE(drawnColor(), nil);
}

TEST_F(AlertLooks, ButtonsWithLongTitlesStayOnThePanel) {
  for (int i = 0; i < 3; ++i) [alert addButtonWithTitle:repeated(@"Long title ", 20)];
  expectUsable();
}

TEST_F(AlertLooks, AnAlertOfAWindowAtTheBottomOfTheScreenIsUsable) {
  [parent setFrameOrigin:NSMakePoint(100, -250)];
  handlePostedEvents();
  [alert setInformativeText:repeated(@"many words ", 60)];
  expectUsable();
}

TEST_P(HardTexts, InTheMessageLeaveItUsable) {
  [alert setMessageText:hardText()];
  [alert addButtonWithTitle:@"OK"];
  [alert addButtonWithTitle:@"Cancel"];
  expectUsable();
}

TEST_P(HardTexts, InTheInformationLeaveItUsable) {
  [alert setMessageText:@"Message"];
  [alert setInformativeText:hardText()];
  [alert addButtonWithTitle:@"OK"];
  expectUsable();
}

INSTANTIATE_TEST_SUITE_P(
    Alert, HardTexts,
    testing::Values(HardText{"TwoThousandCharacters", "0123456789abcde fghi", 100},
                    HardText{"SixtyLines", "line\n", 60}, HardText{"OneEndlessWord", "x", 300},
                    HardText{"FromRightToLeft",
                             "\u05E9\u05DC\u05D5\u05DD \u05E2\u05D5\u05DC\u05DD ", 40},
                    HardText{"Emoji", "\U0001F600 ", 80},
                    HardText{"TwentyThousandCharacters", "0123456789", 2000},
                    HardText{"Nothing", "", 0}),
    [](const auto &info) { return std::string(info.param.name); });
