#include "tests/platform/theme/Contrast.h"
#import "tests/ui/WindowFixtures.h"
#import "text/LocalizedText.h"

namespace {

/// One tab of one window.
struct Shown {
  const char *name;
  bool isShare;
  int tab;
};

struct Layout : Windows, testing::WithParamInterface<Shown> {
  NSWindow *window = nil;

  void SetUp() override {
    window =
        GetParam().isShare ? [openShare(GetParam().tab) window] : [openSend(GetParam().tab) window];
    ASSERT_NE(window, nil);
  }

  /// The controls of the tab that is shown, and the scroll views with texts.
  std::vector<NSView *> controls() {
    std::vector<NSView *> found;
    add([window contentView], found);
    return found;
  }
  static void add(NSView *view, std::vector<NSView *> &found) {
    if ([view isHidden]) return;
    const bool isLeaf =
        [view isKindOfClass:[NSControl class]] || [view isKindOfClass:[NSScrollView class]];
    if (isLeaf) {
      found.push_back(view);
      return;
    }
    for (NSView *subview in [view subviews]) add(subview, found);
  }

  /// The visible part of a control: a push button's frame has a margin of 6 points at each side.
  static NSRect seen(NSView *view) {
    const NSRect frame = [view convertRect:[view bounds] toView:[[view window] contentView]];
    const bool isButton = [view isKindOfClass:[NSButton class]];
    return isButton ? NSInsetRect(frame, 6, 4) : frame;
  }

  void expectEverythingInItsPlace(const char *when) {
    const auto all = controls();
    const NSRect content = [[window contentView] bounds];
    for (size_t i = 0; i < all.size(); ++i) {
      EXPECT_TRUE(NSContainsRect(content, seen(all[i])))
          << when << ": " << text(all[i]) << text(NSStringFromRect(seen(all[i])));
      for (size_t j = i + 1; j < all.size(); ++j) {
        EXPECT_FALSE(NSIntersectsRect(seen(all[i]), seen(all[j])))
            << when << ": " << text(all[i]) << " " << text(all[j]);
      }
    }
  }

  /// Where the text of a control is, without lines, rings, marks and arrows; empty where it has
  /// none.
  static NSRect placeOfText(NSView *view) {
    NSRect place = [view bounds];
    if ([view isKindOfClass:[NSScrollView class]]) return NSInsetRect(place, 4, 4);
    if ([view isKindOfClass:[NSPopUpButton class]]) {
      return NSMakeRect(12, 6, NSWidth(place) - 40, NSHeight(place) - 12);
    }
    if ([view isKindOfClass:[NSButton class]]) {
      const bool isPush = [static_cast<NSButton *>(view) isBordered];
      if (isPush) return NSInsetRect(place, 12, 9);
      return NSMakeRect(22, 0, NSWidth(place) - 22, NSHeight(place));
    }
    if (![view isKindOfClass:[NSTextField class]]) return NSZeroRect;
    return [static_cast<NSTextField *>(view) isBezeled] ? NSInsetRect(place, 4, 3) : place;
  }

  /// Whether there is now a text in the view.
  static bool hasText(NSView *view) {
    if ([view isKindOfClass:[NSScrollView class]]) {
      NSTextView *const text = [static_cast<NSScrollView *>(view) documentView];
      if (![text isKindOfClass:[NSTextView class]]) return false;
      [text setString:@"Here is what we talked about."];
      return true;
    }
    if ([view isKindOfClass:[NSTextField class]] && [static_cast<NSTextField *>(view) isEditable]) {
      [static_cast<NSTextField *>(view) setStringValue:@"Olivia Bennett"];
    }
    return [view isKindOfClass:[NSButton class]] ||
           [[static_cast<NSControl *>(view) stringValue] length] > 0;
  }

  /// The number of texts that were measured.
  int expectReadableTexts(BOOL areEnabled) {
    std::vector<NSView *> texts;
    for (NSView *view : controls()) {
      if ([view isKindOfClass:[NSControl class]]) {
        [static_cast<NSControl *>(view) setEnabled:areEnabled];
      }
      if (!NSIsEmptyRect(placeOfText(view)) && hasText(view)) texts.push_back(view);
    }
    for (NSView *view : texts) {
      EXPECT_GE(contrastIn(Picture::onScreen(view, placeOfText(view))), kReadable)
          << text([view description]) << (areEnabled ? "" : " when disabled");
    }
    return static_cast<int>(texts.size());
  }

  void resize(CGFloat width, CGFloat height) {
    [window setContentSize:NSMakeSize(width, height)];
    handlePostedEvents();
  }
};

/// All that can be read in a view, shown or read aloud.
void addReadable(NSView *view, std::vector<std::string> &texts) {
  id const attribute = NSAccessibilityDescriptionAttribute;
  texts.push_back(text([view toolTip]));
  texts.push_back(text([view accessibilityAttributeValue:attribute]));
  if ([view isKindOfClass:[NSControl class]]) {
    NSCell *const cell = [static_cast<NSControl *>(view) cell];
    texts.push_back(text([cell accessibilityAttributeValue:attribute]));
    texts.push_back(text([cell title]));
    texts.push_back(text([cell stringValue]));
    if ([cell respondsToSelector:@selector(placeholderString)]) {
      texts.push_back(text([static_cast<NSTextFieldCell *>(cell) placeholderString]));
    }
  }
  if ([view isKindOfClass:[NSPopUpButton class]]) {
    NSPopUpButton *const popUp = static_cast<NSPopUpButton *>(view);
    texts.push_back(text([[[popUp cell] menuItem] title]));
    for (NSString *title in [popUp itemTitles]) texts.push_back(text(title));
  }
  if ([view isKindOfClass:[NSTabView class]]) {
    for (NSTabViewItem *item in [static_cast<NSTabView *>(view) tabViewItems]) {
      texts.push_back(text([item label]));
    }
  }
  for (NSView *subview in [view subviews]) addReadable(subview, texts);
}

NSString *longer(NSString *text) {
  const NSUInteger length = static_cast<NSUInteger>([text length] * 1.4);
  return [text stringByPaddingToLength:length withString:@"emno" startingAtIndex:0];
}

}  // namespace

TEST_P(Layout, EverythingHasItsPlaceAsItOpens) {
  expectEverythingInItsPlace("as it opens");
}

TEST_P(Layout, NoTextIsTheKeyOfOne) {
  std::vector<std::string> texts = {text([window title])};
  addReadable([window contentView], texts);
  EXPECT_GT(texts.size(), 20u);
  for (const std::string &each : texts) EXPECT_FALSE(each.ends_with("Key")) << each;
}

TEST_P(Layout, EverythingHasItsPlaceInAMuchLargerWindow) {
  resize(1100, 700);
  expectEverythingInItsPlace("larger");
}

TEST_P(Layout, EverythingHasItsPlaceAfterGrowingAndShrinking) {
  resize(1100, 700);
  const NSSize smallest = [window contentMinSize];
  resize(smallest.width, smallest.height);
  expectEverythingInItsPlace("back at its smallest");
}

TEST_P(Layout, TheWindowCannotBeMadeSmallerThanItIsLaidOutFor) {
  EXPECT_GE([window contentMinSize].width, 590);
  EXPECT_GE([window contentMinSize].height, 400);
}

TEST_P(Layout, TextsThatAreFortyPercentLongerFit) {
  for (NSView *view : controls()) {
    if ([view isKindOfClass:[NSPopUpButton class]] || ![view isKindOfClass:[NSControl class]]) {
      continue;
    }
    NSCell *const cell = [static_cast<NSControl *>(view) cell];
    if ([view isKindOfClass:[NSButton class]]) {
      NSButton *const button = static_cast<NSButton *>(view);
      [button setTitle:longer([button title])];
    } else if (![static_cast<NSTextField *>(view) isEditable]) {
      if ([cell wraps]) continue;
      [cell setStringValue:longer([cell stringValue])];
    } else {
      continue;
    }
    EXPECT_LE([cell cellSize].width, NSWidth([view frame]))
        << text([cell stringValue]) << text([view description]);
  }
}

TEST_P(Layout, EveryTextCanBeReadOnLightAndDarkDesktops) {
  for (bool isDark : {false, true}) {
    const ShownLook look({.isDark = isDark});
    EXPECT_GE(expectReadableTexts(YES), 2);
    EXPECT_GE(expectReadableTexts(NO), 2);
  }
}

INSTANTIATE_TEST_SUITE_P(EachTab, Layout,
                         testing::Values(Shown{"Send", false, 0}, Shown{"CopyLink", false, 1},
                                         Shown{"Permissions", true, 0}, Shown{"Invite", true, 1}),
                         [](const auto &info) { return info.param.name; });

/// On the Mac the interface file has them there.
TEST(LocalizedViews, HaveATextInPlaceOfTheKeyOnTheirCellToo) {
  NSButton *const control = [[[NSButton alloc] initWithFrame:NSMakeRect(0, 0, 90, 30)] autorelease];
  NSString *const attribute = NSAccessibilityDescriptionAttribute;
  [[control cell] accessibilitySetOverrideValue:@"busyDescriptionKey" forAttribute:attribute];
  localizeView(control);
  EXPECT_EQ(text([[control cell] accessibilityAttributeValue:attribute]),
            text(localizedText(@"busyDescriptionKey")));
}

TEST(LocalizedViews, HaveATextInPlaceOfTheKeyThatIsReadToTheBlind) {
  NSView *const view = [[[NSView alloc] initWithFrame:NSMakeRect(0, 0, 90, 30)] autorelease];
  NSString *const attribute = NSAccessibilityDescriptionAttribute;
  [view accessibilitySetOverrideValue:@"busyDescriptionKey" forAttribute:attribute];
  localizeView(view);
  EXPECT_EQ(text([view accessibilityAttributeValue:attribute]),
            text(localizedText(@"busyDescriptionKey")));
}

TEST(LocalizedViews, HaveTextsInTheRowsOfTheirLists) {
  const NSRect frame = NSMakeRect(0, 0, 90, 30);
  NSCollectionView *const list = [[[NSCollectionView alloc] initWithFrame:frame] autorelease];
  NSButton *const row = [[[NSButton alloc] initWithFrame:frame] autorelease];
  [row setTitle:@"usersTextKey"];
  NSCollectionViewItem *const prototype = [[[NSCollectionViewItem alloc] init] autorelease];
  [prototype setView:row];
  [list setItemPrototype:prototype];
  localizeView(list);
  EXPECT_EQ(text([row title]), text(localizedText(@"usersTextKey")));
}
