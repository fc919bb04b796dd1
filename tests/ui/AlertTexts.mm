#import "platform/gnustep/runtime/MethodReplacement.h"
#include "tests/ui/InviteTabFixture.h"
#include "tests/ui/PermissionsTab.h"
#import "text/LocalizedText.h"
#import "windows/Alerts.h"
#import "windows/Recipients.h"

// The texts of the string table are formats, in which a percent sign is written twice.

namespace {

constinit platform::ReplacedMethod<NSString *(NSString *, NSString *, NSString *)> platformText;

bool addsPercentSigns = false;
bool hasNoTexts = false;

NSString *replacedText(id bundle, SEL selector, NSString *key, NSString *value, NSString *table) {
  if (hasNoTexts && bundle == [NSBundle mainBundle]) return value;
  NSString *const text = platformText(bundle, selector, key, value, table);
  const bool isOurs = addsPercentSigns && bundle == [NSBundle mainBundle] && [text length] > 0;
  return isOurs ? [text stringByAppendingString:@" 100 %%"] : text;
}

void replaceTexts() {
  platformText.install([NSBundle class], @selector(localizedStringForKey:value:table:),
                       replacedText);
}

/// While one of these lives, each text of the application's string table ends with " 100 %%".
struct PercentSigns {
  PercentSigns() {
    replaceTexts();
    addsPercentSigns = true;
  }
  ~PercentSigns() { addsPercentSigns = false; }
};

/// While one of these lives, the string table is empty.
struct NoTexts {
  NoTexts() {
    replaceTexts();
    hasNoTexts = true;
  }
  ~NoTexts() { hasNoTexts = false; }
};

NSString *shownFor(NSString *key) {
  return [[[NSBundle mainBundle] localizedStringForKey:key value:@"" table:nil]
      stringByReplacingOccurrencesOfString:@"%%"
                                withString:@"%"];
}

using InviteAlertTexts = InviteTabFixture;
using UnshareQuestionTexts = PermissionsTab;

}  // namespace

TEST(AlertTexts, AreEmptyWhereTheTableHasNone) {
  const NoTexts noTexts;
  for (NSAlert *alert in @[ cannotConnectAlert(), invalidRecipientAlert(@"x") ]) {
    EXPECT_EQ(text([alert messageText]), "");
    EXPECT_EQ(text([alert informativeText]), "");
  }
}

TEST(AlertTexts, TheMessageAboutAnInvalidRecipientGoesThroughTheFormatStep) {
  const PercentSigns percentSigns;
  NSString *const message = [invalidRecipientAlert(@"x") messageText];
  EXPECT_TRUE([message hasSuffix:@" 100 %"]) << text(message);
  EXPECT_EQ(text(message), text(shownFor(@"invalidEmailErrorMessageTextKey")));
}

TEST_F(InviteAlertTexts, TheMessageAboutAnOutsiderGoesThroughTheFormatStep) {
  answer(
      @"getUserInfo::",
      @{@"reply" : success(
          @{@"accountemployee" : @0})});
  open();
  const PercentSigns percentSigns;
  invite(@"s@x.de");
  EXPECT_TRUE(alertShows(text(shownFor(@"invalidEmployeeErrorMessageTextKey"))));
}

TEST_F(UnshareQuestionTexts, TheQuestionGoesThroughTheFormatStep) {
  answer(
      people(1), @"revokeAccess:::",
      @{@"reply" : success(@1)});
  openLoaded();
  const PercentSigns percentSigns;
  askToRemove(0);
  EXPECT_TRUE(sheetShows(shownFor(@"unshareMessageTextKey")));
}
