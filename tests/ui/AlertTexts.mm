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

/// As it stands in the table.
NSString *rawFor(NSString *key) {
  return [[NSBundle mainBundle] localizedStringForKey:key value:@"" table:nil];
}

NSString *nameOfIcon(NSAlert *alert) {
  return [[alert icon] name];
}

/// A window on the send or on the copy tab, after a refusal.
struct RefusalTexts : Windows {
  void refuse(int tab, NSString *operation, NSString *recipients, NSString *title) {
    agent.answer(operation, refusal(1, @"no"));
    SendAndCopyTabController *const controller = openSend(tab);
    window = [controller window];
    for (NSView *view in [[[[controller sendAndCopyTab] tabViewItemAtIndex:0] view] subviews]) {
      if (![view isKindOfClass:[NSTokenField class]]) continue;
      [static_cast<NSTokenField *>(view) setStringValue:recipients];
    }
    [button(window, title) performClick:nil];
    handlePostedEvents();
  }

  bool alertShows(NSString *wanted) const {
    const auto texts = [window attachedSheet] == nil ? std::vector<std::string>{}
                                                     : textsIn([window attachedSheet]);
    return std::find(texts.begin(), texts.end(), text(wanted)) != texts.end();
  }

  NSWindow *window = nil;
};

using CopyAlertTexts = RefusalTexts;
using SendAlertTexts = RefusalTexts;
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

TEST(AlertTexts, OfTheMissingConnectionOnlyTheMessageGoesThroughTheFormatStep) {
  const PercentSigns percentSigns;
  NSAlert *const alert = cannotConnectAlert();
  EXPECT_EQ(text([alert messageText]), text(shownFor(@"cannotConnectToBrisvaleMessageTextKey")));
  EXPECT_EQ(text([alert informativeText]),
            text(rawFor(@"cannotConnectToBrisvaleInformativeTextKey")));
}

TEST(AlertTexts, StandBesideTheApplicationsIcon) {
  for (NSAlert *alert in @[ cannotConnectAlert(), invalidRecipientAlert(@"x") ]) {
    EXPECT_EQ(text(nameOfIcon(alert)), "025_Ostrel_Combo_Mac.icns");
  }
}

TEST(AlertTexts, StandAboveAButtonOfTheirOwnOnlyWhereTheyAreAboutARecipient) {
  EXPECT_EQ([[invalidRecipientAlert(@"x") buttons] count], 1u);
  EXPECT_EQ([[invalidRecipientAlert(@"") buttons] count], 1u);
  EXPECT_EQ([[cannotConnectAlert() buttons] count], 0u);
}

TEST_F(CopyAlertTexts, BothTextsOfARefusalGoThroughTheFormatStep) {
  const PercentSigns percentSigns;
  refuse(1, @"getLinkForFile:::::", @"", rawFor(@"copyLinkButtonTitleKey"));
  EXPECT_TRUE(alertShows(shownFor(@"unableCopyLinkMessagetextKey")));
  EXPECT_TRUE(alertShows(shownFor(@"unableCopyLinkInformativeKey")));
}

TEST_F(SendAlertTexts, OfARefusalOnlyTheMessageGoesThroughTheFormatStep) {
  const PercentSigns percentSigns;
  refuse(0, @"sendFile:::::::::", @"a@example.org", rawFor(@"sendButtonTitleKey"));
  EXPECT_TRUE(alertShows(shownFor(@"unableToSendFileMessageTextKey")));
  EXPECT_TRUE(alertShows(rawFor(@"fileNotAvailableInformativeTextKey")));
}

TEST_F(InviteAlertTexts, OnlyThoseBeforeTheGrantsHaveAButtonOfTheirOwn) {
  knowColleagues(@[ @"a@x.de" ]);
  answer(
      @"getUserInfo::",
      @{@"reply" : success(
          @{@"accountemployee" : @0})});
  grants(refused());
  open();
  const PercentSigns percentSigns;
  const std::vector<std::string> own = {text(rawFor(@"alertOkButtonTitleKey"))};
  invite(@"s@x.de");
  EXPECT_EQ(alertButtons(), own);
  [NSApp endSheet:[window attachedSheet]];
  handlePostedEvents();
  invite(@"a@x.de");
  EXPECT_EQ(alertButtons().size(), 1u);
  EXPECT_NE(alertButtons(), own);
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
