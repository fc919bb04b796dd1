// Invalid replies to changes and removals, invalid entries of the list, and all texts of the
// alerts.

#import "tests/support/Arguments.h"
#include "tests/support/CapturedLog.h"
#import "tests/support/Events.h"
#include "tests/ui/PermissionsTab.h"
#import "text/LocalizedText.h"

namespace {

NSString *const kGrant = @"grantAccess:::::::::";
NSString *const kRevoke = @"revokeAccess:::";
NSString *const kWriter = @"accessPermissionReadWriteKey";

constexpr NSUInteger kYes = 0;

NSDictionary *without(NSDictionary *entry, NSString *key) {
  NSMutableDictionary *const other = [NSMutableDictionary dictionaryWithDictionary:entry];
  [other removeObjectForKey:key];
  return other;
}

NSDictionary *with(NSDictionary *entry, NSString *key, id value) {
  NSMutableDictionary *const other = [NSMutableDictionary dictionaryWithDictionary:entry];
  [other setObject:value forKey:key];
  return other;
}

void addButtons(NSView *view, int &count) {
  if ([view isKindOfClass:[NSButton class]] && ![view isHidden]) ++count;
  for (NSView *subview in [view subviews]) addButtons(subview, count);
}

struct PermissionsTabReplies : PermissionsTab {
  void openAndChange(NSDictionary *reply) {
    answer(@[ reader(@"rea", @"der", @"r@x.org") ], kGrant, @{@"reply" : reply});
    openLoaded();
    choose(0, kWriter);
  }
  void openAndRemove(NSDictionary *reply) {
    answer(people(2), kRevoke, @{@"reply" : reply});
    openLoaded();
    press(askToRemove(0), kYes);
    ASSERT_TRUE(handleEventsUntil([&] { return sheet() != nil; }));
  }
  bool sheetIsSuccess() const { return sheet() == [tab modalWindow]; }
  int buttonsOfSheet() const {
    int count = 0;
    addButtons([sheet() contentView], count);
    return count;
  }
};

/// Replies that are no refusals, whatever they carry.
NSArray *oddSuccesses() {
  return @[
    @{@"error" : @0},
    @{@"value" : @1}, success(@"text"), success(@[ @1 ]), success([NSNull null]),
    @{@"error" : @"0"}, @{@"error" : [NSNull null]}, @{@"error" : @"no"},
    @{@"other" : @1}
  ];
}

}  // namespace

TEST_F(PermissionsTabReplies, ARefusedChangeHasOneButtonAndNothingBelowTheMessage) {
  openAndChange(refusal(5, @"locked"));
  ASSERT_NE(sheet(), nil);
  EXPECT_TRUE(sheetShows(@"The access could not be changed: locked"));
  EXPECT_FALSE(sheetShows(localizedText(@"cannotConnectToBrisvaleInformativeTextKey")));
  EXPECT_EQ(buttonsOfSheet(), 1);
}

TEST_F(PermissionsTabReplies, ARefusedRemovalHasOneButtonAndNothingBelowTheMessage) {
  openAndRemove(refusal(5, @"locked"));
  EXPECT_TRUE(sheetShows(@"The access could not be changed: locked"));
  EXPECT_FALSE(sheetShows(localizedText(@"cannotConnectToBrisvaleInformativeTextKey")));
  EXPECT_EQ(buttonsOfSheet(), 1);
}

TEST_F(PermissionsTabReplies, WithoutAnAnswerTheAlertHasOneButton) {
  openAndChange(@{});
  EXPECT_TRUE(sheetShows(localizedText(@"cannotConnectToBrisvaleMessageTextKey")));
  EXPECT_EQ(buttonsOfSheet(), 1);
  EXPECT_TRUE([spinner() isHidden]);
}

TEST_F(PermissionsTabReplies, TheQuestionHasTwoButtons) {
  answerList(people(1));
  openLoaded();
  askToRemove(0);
  EXPECT_EQ(buttonsOfSheet(), 2);
}

TEST_F(PermissionsTabReplies, AReasonThatIsNoTextIsLeftOut) {
  for (id reason in @[ [NSNull null], @7, @[ @"why" ], @{@"a" : @"b"} ]) {
    openAndChange(@{@"error" : @1, @"errorMessage" : reason});
    EXPECT_TRUE(sheetShows(@"The access could not be changed: ")) << text(reason);
    close();
  }
  openAndRemove(@{@"error" : @1});
  EXPECT_TRUE(sheetShows(@"The access could not be changed: "));
  EXPECT_EQ([[tab personList] count], 2u);
}

TEST_F(PermissionsTabReplies, ErrorsWrittenAsTextOrAsOtherNumbersAreRefusals) {
  for (id error in @[ @"1", @"YES", @"true", @-1, @2, @true ]) {
    openAndChange(@{@"error" : error, @"errorMessage" : @"r"});
    EXPECT_TRUE(sheetShows(@"The access could not be changed: r")) << text(error);
    close();
  }
}

TEST_F(PermissionsTabReplies, WhateverAChangesReplyCarriesWithoutAnErrorIsASuccess) {
  for (NSDictionary *reply in oddSuccesses()) {
    openAndChange(reply);
    EXPECT_TRUE(sheetIsSuccess()) << text(reply);
    close();
  }
}

TEST_F(PermissionsTabReplies, WhateverARemovalsReplyCarriesWithoutAnErrorIsASuccess) {
  for (NSDictionary *reply in oddSuccesses()) {
    openAndRemove(reply);
    EXPECT_TRUE(handleEventsUntil([&] { return sheetIsSuccess(); })) << text(reply);
    EXPECT_EQ([[tab personList] count], 1u);
    close();
  }
}

TEST_F(PermissionsTabReplies, FlagsOfTheListMayBeTextsOrNumbers) {
  NSDictionary *const ann = writer(@"ann", @"lee", @"a@x.org");
  answerList(@[
    with(with(ann, @"candownload", @"1"), @"isowner", @"0"),
    with(with(ann, @"canupload", @"true"), @"candelete", @2), with(ann, @"candelete", @"no"),
    with(ann, @"isowner", @"YES"), with(ann, @"candownload", @"0")
  ]);
  openLoaded();
  ASSERT_EQ([[tab personList] count], 3u);
  EXPECT_EQ([person(0) accessPermission], 1);
  EXPECT_EQ([person(1) accessPermission], 1);
  EXPECT_EQ([person(2) accessPermission], 0);
}

TEST_F(PermissionsTabReplies, APersonWithoutAnAddressIsListedAndCanBeChangedAndRemoved) {
  NSDictionary *const ann = reader(@"ann", @"lee", @"a@x.org");
  agent.setScript(@{
    @"getAccess::" :
        @{@"reply" : success(@[ without(ann, @"useremail"), with(ann, @"useremail", @7) ])},
    kGrant : @{@"reply" : refusal(1, @"nobody")},
    kRevoke : @{@"reply" : success(@1)}
  });
  openLoaded();
  ASSERT_EQ([[tab personList] count], 2u);
  EXPECT_EQ(text([nameIn(1) stringValue]), "Ann Lee");
  choose(1, kWriter);
  EXPECT_EQ(text([argumentsOfLast(kGrant) objectAtIndex:grant_operation::kUserEmail]),
            text([NSNull null]));
  press(sheet(), 0);
  press(askToRemove(1), kYes);
  EXPECT_TRUE(handleEventsUntil([&] { return sheetIsSuccess(); }));
  EXPECT_EQ(text([argumentsOfLast(kRevoke) objectAtIndex:revoke_operation::kUserEmail]),
            text([NSNull null]));
  EXPECT_EQ([[tab personList] count], 1u);
}

TEST_F(PermissionsTabReplies, APersonWithoutNameAndAddressIsAnEmptyRow) {
  NSDictionary *const ann = reader(@"ann", @"lee", @"a@x.org");
  NSDictionary *const nobody = with(without(ann, @"useremail"), @"userfname", [NSNull null]);
  answerList(@[ with(nobody, @"userlname", [NSNull null]), ann ]);
  openLoaded();
  ASSERT_EQ([[tab personList] count], 2u);
  EXPECT_EQ(text([nameIn(0) stringValue]), "");
  EXPECT_EQ(text([nameIn(1) stringValue]), "Ann Lee");
}

TEST_F(PermissionsTabReplies, ALastNameThatIsMissingOrNoTextIsLeftOut) {
  NSDictionary *const ann = reader(@"ann", @"lee", @"a@x.org");
  answerList(@[ without(ann, @"userlname"), with(ann, @"userlname", [NSNull null]) ]);
  openLoaded();
  for (NSUInteger row = 0; row < 2; ++row) {
    EXPECT_EQ(text([person(row) personName]), "Ann ") << row;
  }
}
