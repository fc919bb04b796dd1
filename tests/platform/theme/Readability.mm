#import "platform/gnustep/tokenfield/CompletionListView.h"
#include "tests/platform/theme/Contrast.h"
#include "tests/platform/theme/Themed.h"
#include "tests/support/Events.h"

// Not in the platform's headers.
@interface NSObject (GSToolTips)
+ (id)tipsForView:(NSView *)view;
- (void)_timedOut:(NSTimer *)timer;
@end

namespace {

/// The inside of the controls of Themed, without lines and rings.
const NSRect kInPushButton = {{12, 8}, {72, 16}};
const NSRect kInMark = {{22, 0}, {98, 18}};
const NSRect kInField = {{4, 3}, {150, 16}};
const NSRect kInPopUp = {{10, 5}, {100, 16}};

/// Both looks of the desktop.
struct Readability : Themed, testing::WithParamInterface<bool> {
  ShownLook look{{.isDark = GetParam()}};

  void expectReadable(NSView *view, NSRect part) {
    EXPECT_GE(contrastIn(Picture(view, part)), kReadable);
  }

  void expectReadableWhenDisabled(NSControl *control, NSRect part) {
    [control setEnabled:NO];
    expectReadable(control, part);
  }

  NSTextView *textView(NSString *string) {
    NSTextView *const view = [[NSTextView alloc] initWithFrame:NSMakeRect(20, 20, 200, 40)];
    [view setString:string];
    return show(view);
  }

  NSTokenField *tokenField() {
    NSTokenField *const tokens = [[NSTokenField alloc] initWithFrame:NSMakeRect(20, 20, 200, 22)];
    [tokens setObjectValue:@[ @"Anna" ]];
    return show(tokens);
  }

  /// Inside the only token of a field, which begins at the left.
  static constexpr NSRect kInToken = {{12, 6}, {28, 10}};

  NSMenuView *openMenu(NSPopUpButton *button) {
    [[button cell] attachPopUpWithFrame:[button bounds] inView:button];
    NSMenuView *const menu = [[button menu] menuRepresentation];
    [menu setHighlightedItemIndex:0];
    return menu;
  }

  /// Without the space for the tick and the rounded ends.
  static NSRect inItem(NSMenuView *menu, NSInteger index) {
    const NSRect rect = [menu rectOfItemAtIndex:index];
    const double left = [menu imageAndTitleOffset];
    return NSMakeRect(NSMinX(rect) + left, NSMinY(rect) + 3, NSWidth(rect) - left - 10,
                      NSHeight(rect) - 6);
  }
};

using Blank = Themed;

std::string nameOf(const testing::TestParamInfo<bool> &info) {
  return info.param ? "Dark" : "Light";
}

}  // namespace

TEST_P(Readability, OfButtons) {
  expectReadable(pushButton(@"Cancel"), kInPushButton);
  expectReadable(defaultButton(@"Send"), kInPushButton);
}

TEST_P(Readability, OfPressedButtons) {
  NSButton *const button = pushButton(@"Cancel");
  [[button cell] setHighlighted:YES];
  expectReadable(button, kInPushButton);
  NSButton *const preset = defaultButton(@"Send");
  [[preset cell] setHighlighted:YES];
  expectReadable(preset, kInPushButton);
}

TEST_P(Readability, OfDisabledButtons) {
  expectReadableWhenDisabled(pushButton(@"Cancel"), kInPushButton);
  expectReadableWhenDisabled(defaultButton(@"Send"), kInPushButton);
}

TEST_P(Readability, OfCheckBoxes) {
  NSButton *const box = markable(NSSwitchButton, NSOnState);
  expectReadable(box, kInMark);
  expectReadableWhenDisabled(box, kInMark);
}

TEST_P(Readability, OfLabels) {
  NSTextField *const name = label(@"Recipients");
  expectReadable(name, [name bounds]);
  expectReadableWhenDisabled(name, [name bounds]);
}

TEST_P(Readability, OfOtherScripts) {
  for (NSString *string in @[ @"שלום עולם", @"مرحبا", @"नमस्ते", @"日本語", @"สวัสดี" ]) {
    NSTextField *const name = label(string);
    expectReadable(name, [name bounds]);
    [name removeFromSuperview];
  }
}

TEST_P(Readability, OfFields) {
  NSTextField *const name = field(@"Anna");
  expectReadable(name, kInField);
  expectReadableWhenDisabled(name, kInField);
}

TEST_P(Readability, OfPlaceholders) {
  NSTextField *const name = field(@"");
  [[name cell] setPlaceholderString:@"Name"];
  expectReadable(name, kInField);
  expectReadableWhenDisabled(name, kInField);
}

TEST_P(Readability, OfAFieldThatIsEdited) {
  NSTextField *const name = field(@"Anna");
  ASSERT_TRUE(focus(name));
  [[name currentEditor] setSelectedRange:NSMakeRange(4, 0)];
  expectReadable(name, kInField);
}

TEST_P(Readability, OfSelectedTexts) {
  NSTextView *const text = textView(@"AnnaAnnaAnnaAnna");
  ASSERT_TRUE(focus(text));
  [text setSelectedRange:NSMakeRange(0, 16)];
  // Nothing but the selection.
  expectReadable(text, NSMakeRect(8, 1, 80, 12));
}

TEST_P(Readability, OfTextsOfSeveralLines) {
  NSTextView *const text = textView(@"Here is what\nwe talked about.");
  expectReadable(text, [text bounds]);
}

TEST_P(Readability, OfTabs) {
  NSTabView *const view = tabs(@[ @"Send File", @"Copy Link" ]);
  [window display];
  for (double y : {17.0}) {
    for (NSInteger index : {0, 1}) {
      NSRect segment = NSZeroRect;
      for (double x = 0; x < NSWidth([view bounds]); ++x) {
        if ([view tabViewItemAtPoint:NSMakePoint(x, y)] != [view tabViewItemAtIndex:index])
          continue;
        segment = NSUnionRect(segment, NSMakeRect(x, y - 6, 1, 13));
      }
      expectReadable(view, NSInsetRect(segment, 6, 0));
    }
  }
}

TEST_P(Readability, OfPopUpButtons) {
  NSPopUpButton *const button = popUp(@[ @"View", @"Edit" ]);
  expectReadable(button, kInPopUp);
  expectReadableWhenDisabled(button, kInPopUp);
}

TEST_P(Readability, OfMenus) {
  NSPopUpButton *const button = popUp(@[ @"View", @"Edit", @"Manage" ]);
  [button setAutoenablesItems:NO];
  [[button itemAtIndex:2] setEnabled:NO];
  NSMenuView *const menu = openMenu(button);
  for (NSInteger index : {0, 1, 2}) expectReadable(menu, inItem(menu, index));
  [[button cell] dismissPopUp];
}

TEST_P(Readability, OfTheTitlesOfBoxes) {
  NSBox *const box = [[NSBox alloc] initWithFrame:NSMakeRect(20, 20, 200, 100)];
  [box setTitle:@"Options"];
  show(box);
  expectReadable(box, NSInsetRect([box titleRect], 2, 2));
}

TEST_P(Readability, OfTheHeadsOfTables) {
  NSTableView *const table = [[[NSTableView alloc] initWithFrame:NSZeroRect] autorelease];
  NSTableColumn *const column = [[[NSTableColumn alloc] initWithIdentifier:@"name"] autorelease];
  [[column headerCell] setStringValue:@"Name"];
  [column setWidth:120];
  [table addTableColumn:column];
  NSScrollView *const scroll = [[NSScrollView alloc] initWithFrame:NSMakeRect(20, 20, 200, 100)];
  [scroll setDocumentView:table];
  show(scroll);
  expectReadable([table headerView], NSMakeRect(2, 3, 100, 12));
}

TEST_P(Readability, OfTokens) {
  NSTokenField *const tokens = tokenField();
  expectReadable(tokens, kInToken);
  expectReadableWhenDisabled(tokens, kInToken);
}

TEST_P(Readability, OfSelectedTokens) {
  NSTokenField *const tokens = tokenField();
  ASSERT_TRUE(focus(tokens));
  [[tokens currentEditor] setSelectedRange:NSMakeRange(0, 1)];
  expectReadable(tokens, kInToken);
}

TEST_P(Readability, OfThePlaceholderOfATokenField) {
  NSTokenField *const tokens = tokenField();
  [tokens setObjectValue:@[]];
  [[tokens cell] setPlaceholderString:@"Name"];
  expectReadable(tokens, kInField);
}

TEST_P(Readability, OfCompletions) {
  CompletionListView *const list =
      [[CompletionListView alloc] initWithFrame:NSMakeRect(20, 20, 200, 60)];
  [list setItems:@[ @"Anna", @"Oliver" ] font:[NSFont systemFontOfSize:0]];
  [list setSelectedRow:1];
  show(list);
  const double row = [CompletionListView rowHeightForFont:[NSFont systemFontOfSize:0]];
  expectReadable(list, NSMakeRect(0, 0, 200, row));
  expectReadable(list, NSMakeRect(0, row, 200, row));
}

TEST_P(Readability, OfAlerts) {
  NSAlert *const alert = [[[NSAlert alloc] init] autorelease];
  [alert setMessageText:@"Check the recipients."];
  [alert setInformativeText:@"Correct or remove it, then try again."];
  NSWindow *const panel = [alert window];
  [panel orderFront:nil];
  int texts = 0;
  std::vector<NSView *> views = {[panel contentView]};
  while (!views.empty()) {
    NSView *const view = views.back();
    views.pop_back();
    for (NSView *subview in [view subviews]) views.push_back(subview);
    if (![view isKindOfClass:[NSTextField class]]) continue;
    expectReadable(view, [view bounds]);
    ++texts;
  }
  EXPECT_EQ(texts, 2);
  [panel close];
}

TEST_P(Readability, OfToolTips) {
  NSTextField *const name = label(@"Recipients");
  [name setToolTip:@"Who gets the mail"];
  // As after the mouse has rested there.
  NSTimer *const rest = [NSTimer timerWithTimeInterval:1
                                                target:name
                                              selector:@selector(display)
                                              userInfo:@"Who gets the mail"
                                               repeats:NO];
  [[NSClassFromString(@"GSToolTips") tipsForView:name] _timedOut:rest];
  NSWindow *panel = nil;
  for (NSWindow *shown in [NSApp windows]) {
    if ([shown isKindOfClass:NSClassFromString(@"GSTTPanel")] && [shown isVisible]) panel = shown;
  }
  ASSERT_NE(panel, nil);
  expectReadable([panel contentView], NSInsetRect([[panel contentView] bounds], 2, 2));
  [panel orderOut:nil];
}

INSTANTIATE_TEST_SUITE_P(On, Readability, testing::Values(false, true), nameOf);

TEST(Contrast, IsThatOfTheGuidelines) {
  EXPECT_NEAR(contrastOf(0x000000, 0xFFFFFF), 21, 0.01);
  EXPECT_NEAR(contrastOf(0xFFFFFF, 0x767676), 4.54, 0.01);
  EXPECT_NEAR(contrastOf(0x123456, 0x123456), 1, 0.01);
}

TEST_F(Blank, WhereThereIsNoTextThereIsNoContrast) {
  EXPECT_NEAR(contrastIn(Picture(pushButton(@""), kInPushButton)), 1, 0.01);
  EXPECT_NEAR(contrastIn(Picture(field(@""), kInField)), 1, 0.01);
}
