// How an invitation ends: each row of the table of its outcomes, with all that the row says.

#include <fstream>
#include <iterator>
#include <ostream>

#import "tests/support/Arguments.h"
#include "tests/support/HeldReply.h"
#include "tests/support/RepeatingTimer.h"
#include "tests/support/TypeAheadUser.h"
#import "tests/ui/InviteTabFixture.h"

using InviteTabOutcomes = InviteTabFixture;

namespace {

using Titles = std::vector<std::string>;

const std::string kBadAddress = "Check the recipients.";
const std::string kNoConnection = "Brisvale cannot be reached.";

}  // namespace

TEST_F(InviteTabOutcomes, ABadAddressHasItsTextsOneButtonAndAsksNobody) {
  open();
  invite(@"a@x.de,bad,worse");
  EXPECT_TRUE(alertShows(kBadAddress));
  EXPECT_TRUE(alertShows(
      "\u201cbad\u201d is not a valid e-mail address. Correct or remove it, then try again."));
  EXPECT_EQ(alertButtons(), Titles{"OK"});
  EXPECT_EQ(calls(kGrant), 0u);
  EXPECT_TRUE([spinner() isHidden]);
  EXPECT_EQ(counter->posts, 0);
}

TEST_F(InviteTabOutcomes, AnEmptyAddressHasItsTextsAndOneButton) {
  for (NSString *entered in @[ @"", @"a@x.de,,b@x.de", @"a@x.de," ]) {
    knowColleagues(@[ @"a@x.de", @"b@x.de" ]);
    open();
    invite(entered);
    EXPECT_TRUE(alertShows(kBadAddress)) << text(entered);
    EXPECT_TRUE(alertShows(
        "Enter at least one e-mail address, and remove commas with nothing between them."));
    EXPECT_EQ(alertButtons(), Titles{"OK"});
    EXPECT_EQ(calls(kGrant), 0u);
    EXPECT_EQ(calls(kUserInfo), 0u);
    EXPECT_TRUE([spinner() isHidden]);
  }
}

TEST_F(InviteTabOutcomes, TheFirstOutsiderAloneIsNamedAndTheOthersAreNotLookedUp) {
  knowColleagues(@[ @"a@x.de" ]);
  answer(
      kUserInfo,
      @{@"reply" : success(
          @{@"accountemployee" : @0})});
  open();
  invite(@"a@x.de,s@x.de,t@x.de");
  EXPECT_TRUE(alertShows("No colleague with this address was found: s@x.de. Correct or remove it, "
                         "then try again."));
  EXPECT_EQ(alertButtons(), Titles{"OK"});
  EXPECT_EQ(calls(kUserInfo), 1u);
  EXPECT_TRUE(([agent.lastArguments(kUserInfo) isEqual:@[ @"s@x.de", @0 ]]));
  EXPECT_TRUE([spinner() isHidden]);
  EXPECT_EQ(counter->posts, 0);
}

namespace {

/// A reply that is none: an entry of the agent's script.
struct MissingReply {
  const char *name;
  NSDictionary *(*entry)();
};

void PrintTo(const MissingReply &reply, std::ostream *out) {
  *out << reply.name;
}

struct InviteTabWithoutReply : InviteTabFixture, testing::WithParamInterface<MissingReply> {};

}  // namespace

TEST_P(InviteTabWithoutReply, ForTheSecondStopsThereAndLeavesEverything) {
  knowColleagues(@[ @"a@x.de", @"b@x.de", @"c@x.de" ]);
  grants(@[ granted(), GetParam().entry(), granted() ]);
  open();
  [message() setString:@"kept"];
  [access() selectItemAtIndex:0];
  invite(@"a@x.de,b@x.de,c@x.de");
  EXPECT_EQ(calls(kGrant), 2u);
  EXPECT_TRUE(alertShows(kNoConnection));
  EXPECT_EQ(alertButtons(), Titles{"OK"});
  EXPECT_EQ(log.lines(), withActivations({kNoReplyLine}));
  EXPECT_TRUE([spinner() isHidden]);
  EXPECT_EQ(counter->posts, 0);
  EXPECT_EQ(text([recipients() stringValue]), "a@x.de,b@x.de,c@x.de");
  EXPECT_EQ(text([message() string]), "kept");
  EXPECT_EQ([access() indexOfSelectedItem], 0);
}

INSTANTIATE_TEST_SUITE_P(
    Of, InviteTabWithoutReply,
    testing::Values(MissingReply{"NoEntries", []() -> NSDictionary * { return
                                                                           @{@"reply" : @{}}; }},
                    MissingReply{"Nil", []() -> NSDictionary * { return
                                                                     @{@"nil" : @1}; }},
                    MissingReply{"AnException",
                                 []() -> NSDictionary * { return @{@"raise" : @"NSOops"}; }}),
    [](const auto &info) { return info.param.name; });

TEST_F(InviteTabOutcomes, TheIndicatorIsShownUntilTheSecondReplyIsEmptyAndThenHidden) {
  knowColleagues(@[ @"a@x.de", @"b@x.de", @"c@x.de" ]);
  const HeldReply hold;
  grants(@[ granted(), hold.entry(@{@"reply" : @{}}), granted() ]);
  open();
  bool isShown = false;
  const RepeatingTimer look(NSConnectionReplyMode, [&] {
    if (calls(kGrant) < 2) return;
    isShown |= ![spinner() isHidden];
    hold.release();
  });
  invite(@"a@x.de,b@x.de,c@x.de");
  EXPECT_TRUE(isShown);
  EXPECT_TRUE([spinner() isHidden]);
  EXPECT_TRUE(alertShows(kNoConnection));
  EXPECT_EQ(calls(kGrant), 2u);
  EXPECT_EQ(text([grantArguments(1) objectAtIndex:grant_operation::kUserEmail]), "b@x.de");
}

TEST_F(InviteTabOutcomes, RefusalsLeaveWhatWasEnteredAndTheAgentsReasonIsNotShown) {
  knowColleagues(@[ @"a@x.de", @"b@x.de" ]);
  grants(@{@"reply" : refusal(4, @"the reason")});
  open();
  [message() setString:@"kept"];
  invite(@"a@x.de,b@x.de");
  EXPECT_TRUE(alertShows("No colleague with this address was found: a@x.de, b@x.de. Correct or "
                         "remove it, then try again."));
  EXPECT_FALSE(alertShows("the reason"));
  EXPECT_EQ(alertButtons(), Titles{"OK"});
  EXPECT_TRUE([spinner() isHidden]);
  EXPECT_EQ(text([recipients() stringValue]), "a@x.de,b@x.de");
  EXPECT_EQ(text([message() string]), "kept");
}

TEST_F(InviteTabOutcomes, ASuccessIsToldBeforeAndAfterItsSheetComes) {
  knowColleagues(@[ @"a@x.de" ]);
  grants(granted());
  open();
  invite(@"a@x.de");
  EXPECT_EQ(counter->hadSheet, (std::vector<bool>{false, true}));
  EXPECT_TRUE([spinner() isHidden]);
  EXPECT_TRUE(alertShows("The folder is now shared."));
}

TEST_F(InviteTabOutcomes, TheSpinnerIsOnTheScreenWhileTheAgentIsAsked) {
  knowColleagues(@[ @"a@x.de" ]);
  const HeldReply hold;
  grants(hold.entry(refused()));
  open();
  NSProgressIndicator *const indicator = spinner();
  bool wasSeen = false;
  const RepeatingTimer look(NSConnectionReplyMode, [&] {
    if (calls(kGrant) == 0) return;
    wasSeen = wasSeen || ![indicator isHidden];
    hold.release();
  });
  invite(@"a@x.de");
  EXPECT_TRUE(wasSeen);
  EXPECT_TRUE([indicator isHidden]);
}

TEST_F(InviteTabOutcomes, AwakingChoosesReadingWhateverTheInterfaceFileHas) {
  open();
  [access() selectItemAtIndex:0];
  [[controller sendInviteTab] awakeFromNib];
  EXPECT_EQ([access() indexOfSelectedItem], 1);
}

TEST_F(InviteTabOutcomes, ARefusalIsToldOnceAndAfterItsAlert) {
  knowColleagues(@[ @"a@x.de" ]);
  grants(refused());
  open();
  invite(@"a@x.de");
  EXPECT_EQ(counter->hadSheet, std::vector<bool>{true});
}

TEST_F(InviteTabOutcomes, KeysPressedBeforeTheAlertShowsDoNotDismissItUnread) {
  knowColleagues(@[ @"a@x.de" ]);
  const HeldReply hold;
  grants(hold.entry(refused()));
  open();
  const TypeAheadUser user(
      window, @"\r", [&] { return calls(kGrant) == 1; }, [&] { hold.release(); });
  invite(@"a@x.de");
  EXPECT_TRUE(user.hasTyped());
  EXPECT_TRUE(alertShows("The folder can only be shared with colleagues."));
}

/// The alert is on the screen by then, so the key dismisses it.
TEST_F(InviteTabOutcomes, AKeyPressedWhileTheListIsLoadedBehindTheAlertDismissesIt) {
  knowColleagues(@[ @"a@x.de" ]);
  grants(refused());
  open();
  ASSERT_TRUE(handleEventsUntil([&] { return calls(@"getAccess::") == 1; }));
  const HeldReply hold;
  answer(@"getAccess::", hold.entry(@{}));
  const TypeAheadUser user(
      window, @"\r", [&] { return calls(@"getAccess::") == 2; }, [&] { hold.release(); });
  invite(@"a@x.de");
  EXPECT_TRUE(user.hasTyped());
  EXPECT_TRUE(handleEventsUntil([&] { return [window attachedSheet] == nil; }));
}

TEST_F(InviteTabOutcomes, AnInvitationAfterAnOpeningIsThreeLoadsOfTheList) {
  knowColleagues(@[ @"a@x.de" ]);
  grants(granted());
  open();
  ASSERT_TRUE(handleEventsUntil([&] { return calls(@"getAccess::") == 1; }));
  invite(@"a@x.de");
  EXPECT_EQ(calls(@"getAccess::"), 3u);
}

TEST_F(InviteTabOutcomes, AWindowThatWasClosedAndOpenedAgainLoadsTwiceForAnInvitation) {
  knowColleagues(@[ @"a@x.de" ]);
  grants(granted());
  std::function<bool()> formerHasEnded;
  @autoreleasepool {
    open();
    formerHasEnded = endOf([controller givePermissionTab]);
    [window close];
  }
  @autoreleasepool {
    // Until then the application retains what it has hidden.
    [NSApp unhideWithoutActivation];
  }
  ASSERT_TRUE(handleEventsUntil(formerHasEnded));
  open();
  ASSERT_TRUE(handleEventsUntil([&] { return calls(@"getAccess::") == 2; }));
  invite(@"a@x.de");
  EXPECT_EQ(calls(@"getAccess::"), 4u);
}

TEST_F(InviteTabOutcomes, SomebodyWhomNobodyCanLookUpIsInvited) {
  knowColleagues(@[ @"a@x.de" ]);
  grants(granted());
  for (NSDictionary *none in @[ @{@"reply" : @{}}, @{@"nil" : @1} ]) {
    answer(kUserInfo, none);
    open();
    const NSUInteger before = calls(kGrant);
    invite(@"stranger@x.de");
    EXPECT_EQ(calls(kGrant), before + 1) << text(none);
    EXPECT_TRUE(alertShows("The folder is now shared."));
  }
}

TEST_F(InviteTabOutcomes, SomebodyIsNoOutsiderWhoseRecordCannotBeReadBecauseTheAgentHasGone) {
  knowColleagues(@[ @"a@x.de" ]);
  answer(
      kUserInfo,
      @{@"die" : @"whenValueIsRead",
        @"reply" : success(
            @{@"accountemployee" : @1})});
  open();
  EXPECT_TRUE([[controller sendInviteTab] isEmployee:@"s@x.de"]);
  EXPECT_FALSE([[delegate employeeContacts] containsObject:@"s@x.de"]);
}

TEST_F(InviteTabOutcomes, WhetherSomebodyIsAnEmployeeMayBeWrittenAsTextOrNumber) {
  knowColleagues(@[ @"a@x.de" ]);
  open();
  int count = 0;
  for (id yes in @[ @true, @1, @2, @"1", @"YES", @"true" ]) {
    answer(
        kUserInfo,
        @{@"reply" : success(@{@"accountemployee" : yes})});
    NSString *const address = [NSString stringWithFormat:@"s%d@x.de", count++];
    EXPECT_TRUE([[controller sendInviteTab] isEmployee:address]) << text(yes);
  }
  for (id no in @[ @false, @0, @"0", @"no", @"", [NSNull null], @[ @1 ], @{@"1" : @1} ]) {
    answer(
        kUserInfo,
        @{@"reply" : success(@{@"accountemployee" : no})});
    EXPECT_FALSE([[controller sendInviteTab] isEmployee:@"t@x.de"]) << text(no);
  }
}

TEST_F(InviteTabOutcomes, AnEmployeeWhoseNamesAreMissingOrNoTextsIsAnEmployee) {
  knowColleagues(@[ @"a@x.de" ]);
  answer(
      kUserInfo, @{
        @"reply" : success(
            @{@"accountemployee" : @1,
              @"name" : [NSNull null],
              @"primaryemail" : @7})
      });
  grants(granted());
  open();
  invite(@"odd@x.de");
  EXPECT_EQ(calls(kGrant), 1u);
  EXPECT_TRUE([[delegate employeeContacts] containsObject:@"odd@x.de"]);
}

TEST_F(InviteTabOutcomes, ThePersonInTheReplyToAGrantIsReadAndDropped) {
  knowColleagues(@[ @"a@x.de" ]);
  const std::string reads = newTemporaryFolder() + "/reads";
  grants(@{
    @"reply" : success(@{@"userfname" : @"anna", @"useremail" : @"a@x.de"}),
    @"recordReadsIn" : [NSString stringWithUTF8String:reads.c_str()]
  });
  open();
  invite(@"a@x.de");
  std::ifstream file(reads);
  const std::string keys((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  EXPECT_EQ(keys, "userfname\nuserlname\nuseremail\n");
  EXPECT_EQ([[[controller givePermissionTab] personList] count], 0u);
  EXPECT_EQ(counter->posts, 2);
}

TEST_F(InviteTabOutcomes, AnEmployeeWithoutANameIsAddedAsThePlatformWritesNil) {
  knowColleagues(@[ @"a@x.de" ]);
  answer(
      kUserInfo,
      @{@"reply" : success(
          @{@"accountemployee" : @1,
            @"primaryemail" : @"odd@x.de"})});
  open();
  EXPECT_TRUE([[controller sendInviteTab] isEmployee:@"odd@x.de"]);
  NSString *const nothing = nil;
  EXPECT_EQ(text([[delegate addressBookForShare] lastObject]),
            text([NSString stringWithFormat:@"%@<odd@x.de>", nothing]));
}

TEST_F(InviteTabOutcomes, AReplyWithoutAValueIsNoEmployee) {
  knowColleagues(@[ @"a@x.de" ]);
  answer(
      kUserInfo,
      @{@"reply" : @{@"error" : @0}});
  open();
  invite(@"s@x.de");
  EXPECT_EQ(calls(kGrant), 0u);
  EXPECT_TRUE(alertShows("The folder can only be shared with colleagues."));
}

TEST_F(InviteTabOutcomes, WhateverTheAgentTellsOfTheInvitedThePersonIsInvited) {
  knowColleagues(@[ @"a@x.de" ]);
  NSDictionary *const odd = @{@"userfname" : [NSNull null], @"userlname" : @3, @"useremail" : @[]};
  for (NSDictionary *reply in @[
         @{@"error" : @0},
         @{@"value" : @1}, success(@"text"), success(@7), success(@[ @1 ]), success([NSNull null]),
         success(odd), @{@"error" : @"0"}, @{@"error" : [NSNull null]}
       ]) {
    grants(@{@"reply" : reply});
    open();
    invite(@"a@x.de");
    EXPECT_TRUE(alertShows("The folder is now shared.")) << text(reply);
  }
}

TEST_F(InviteTabOutcomes, AnErrorWrittenAsTextIsARefusal) {
  knowColleagues(@[ @"a@x.de" ]);
  for (id error in @[ @"1", @"YES", @-1, @true ]) {
    grants(@{@"reply" : @{@"error" : error, @"errorMessage" : @[ @1 ]}});
    open();
    invite(@"a@x.de");
    EXPECT_TRUE(alertShows("The folder can only be shared with colleagues.")) << text(error);
  }
}

TEST_F(InviteTabOutcomes, TheMessageIsCutBeforeItIsEscaped) {
  knowColleagues(@[ @"a@x.de" ]);
  grants(refused());
  open();
  [message() setString:[@"" stringByPaddingToLength:801 withString:@"&" startingAtIndex:0]];
  invite(@"a@x.de");
  EXPECT_EQ(text([grantArguments(0) objectAtIndex:grant_operation::kMessage]),
            text([@"" stringByPaddingToLength:2400 withString:@"%26" startingAtIndex:0]));
}

TEST_F(InviteTabOutcomes, WhoWasLookedUpIsOfferedAsACompletion) {
  knowColleagues(@[ @"a@x.de" ]);
  answer(
      kUserInfo, @{
        @"reply" : success(
            @{@"accountemployee" : @1,
              @"name" : @"Zelda New",
              @"primaryemail" : @"z@x.de"})
      });
  open();
  InviteTabController *const tab = [controller sendInviteTab];
  ASSERT_TRUE([tab isEmployee:@"z@x.de"]);
  NSArray *const offered = [tab tokenField:recipients()
                   completionsForSubstring:@"zel"
                              indexOfToken:0
                       indexOfSelectedItem:nullptr];
  EXPECT_TRUE([offered isEqual:@[ @"Zelda New<z@x.de>" ]]) << text(offered);
}
