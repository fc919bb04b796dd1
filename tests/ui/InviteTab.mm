#import "tests/support/Arguments.h"
#import "tests/ui/InviteTabFixture.h"

using InviteTab = InviteTabFixture;

namespace {

const std::string kNotColleague = "The folder can only be shared with colleagues.";

}  // namespace

TEST_F(InviteTab, AnEmptyFieldGivesTheBlankAddressAlert) {
  open();
  invite(@"");
  EXPECT_TRUE(alertShows("Check the recipients."));
  EXPECT_NE(button([window attachedSheet], @"OK"), nil);
  EXPECT_EQ(calls(kGrant), 0u);
  EXPECT_EQ(counter->posts, 0);
}

TEST_F(InviteTab, AnEmptyEntryBetweenTwoStopsBeforeAnybodyIsGranted) {
  knowColleagues(@[ @"a@x.de", @"b@x.de" ]);
  open();
  invite(@"a@x.de,,b@x.de");
  EXPECT_TRUE(alertShows("Check the recipients."));
  EXPECT_EQ(calls(kGrant), 0u);
}

TEST_F(InviteTab, ABadAddressIsNamed) {
  open();
  invite(@"nobody");
  EXPECT_TRUE(alertShows(
      "\u201cnobody\u201d is not a valid e-mail address. Correct or remove it, then try again."));
  EXPECT_EQ(log.lines(), withActivations({}));
  EXPECT_EQ(calls(kUserInfo), 0u);
}

TEST_F(InviteTab, SomebodyUnknownIsLookedUpOnceAndThenKnown) {
  knowColleagues(@[ @"a@x.de" ]);
  answer(
      kUserInfo, @{
        @"reply" : success(
            @{@"accountemployee" : @1,
              @"name" : @"New One",
              @"primaryemail" : @"n@x.de"})
      });
  grants(@[ refused(), refused() ]);
  open();
  invite(@"n@x.de");
  EXPECT_EQ(calls(kUserInfo), 1u);
  EXPECT_TRUE([[delegate addressBookForShare] containsObject:@"New One<n@x.de>"]);
  EXPECT_TRUE([[delegate employeeContacts] containsObject:@"n@x.de"]);
  [button([window attachedSheet], @"OK") performClick:nil];
  handlePostedEvents();
  invite(@"n@x.de");
  EXPECT_EQ(calls(kUserInfo), 1u);
  EXPECT_EQ(calls(kGrant), 2u);
}

TEST_F(InviteTab, AnEmptyReplyToTheLookUpBlocksNobody) {
  knowColleagues(@[ @"a@x.de" ]);
  open();
  EXPECT_TRUE([[controller sendInviteTab] isEmployee:@"stranger@x.de"]);
  EXPECT_FALSE([[delegate employeeContacts] containsObject:@"stranger@x.de"]);
}

TEST_F(InviteTab, SomebodyWhoIsNoEmployeeIsNamedAndNobodyIsGranted) {
  knowColleagues(@[ @"a@x.de" ]);
  answer(
      kUserInfo,
      @{@"reply" : success(
          @{@"accountemployee" : @0})});
  open();
  invite(@"a@x.de,s@x.de");
  EXPECT_TRUE(alertShows(kNotColleague));
  EXPECT_TRUE(alertShows("No colleague with this address was found: s@x.de. Correct or remove it, "
                         "then try again."));
  EXPECT_NE(button([window attachedSheet], @"OK"), nil);
  EXPECT_EQ(calls(kGrant), 0u);
  EXPECT_EQ(text([recipients() stringValue]), "a@x.de,s@x.de");
}

TEST_F(InviteTab, AllArgumentsReachTheAgentInTheirOrder) {
  knowColleagues(@[ @"a@x.de" ]);
  grants(refused());
  open();
  [message() setString:@"hello there"];
  invite(@"a@x.de");
  EXPECT_TRUE(([grantArguments(0) isEqual:@[
    @"a@x.de", @"folder-1", @1, @0, @0, @1, @1, @1, @"hello%20there"
  ]])) << text(grantArguments(0));
}

TEST_F(InviteTab, ReadAndWriteGivesBothRights) {
  knowColleagues(@[ @"a@x.de" ]);
  grants(refused());
  open();
  NSPopUpButton *const access = static_cast<NSPopUpButton *>(button(window, @"Read only"));
  [[access menu] performActionForItemAtIndex:0];
  invite(@"a@x.de");
  EXPECT_TRUE([[grantArguments(0) objectAtIndex:grant_operation::kCanUpload] boolValue]);
  EXPECT_TRUE([[grantArguments(0) objectAtIndex:grant_operation::kCanDelete] boolValue]);
}

TEST_F(InviteTab, AMessageOf801CharactersIsSentAsItsFirst800) {
  knowColleagues(@[ @"a@x.de" ]);
  grants(refused());
  open();
  [message() setString:[@"" stringByPaddingToLength:801 withString:@"x" startingAtIndex:0]];
  invite(@"a@x.de");
  EXPECT_EQ([[grantArguments(0) objectAtIndex:grant_operation::kMessage] length], 800u);
}

TEST_F(InviteTab, NoReplyForTheSecondOfThreeStopsThere) {
  knowColleagues(@[ @"a@x.de", @"b@x.de", @"c@x.de" ]);
  grants(@[ granted(), @{@"reply" : @{}}, granted() ]);
  open();
  invite(@"a@x.de,b@x.de,c@x.de");
  EXPECT_EQ(calls(kGrant), 2u);
  EXPECT_TRUE(alertShows("Brisvale cannot be reached."));
  EXPECT_EQ(log.lines(), withActivations({kNoReplyLine}));
  EXPECT_EQ(counter->posts, 0);
  EXPECT_EQ(text([recipients() stringValue]), "a@x.de,b@x.de,c@x.de");
}

TEST_F(InviteTab, RefusalsOfTheFirstAndThirdAreListedTogether) {
  knowColleagues(@[ @"a@x.de", @"b@x.de", @"c@x.de" ]);
  grants(@[ refused(), granted(), refused() ]);
  open();
  invite(@"a@x.de,b@x.de,c@x.de");
  EXPECT_EQ(calls(kGrant), 3u);
  EXPECT_TRUE(alertShows(kNotColleague));
  EXPECT_TRUE(alertShows("No colleague with this address was found: a@x.de, c@x.de. Correct or "
                         "remove it, then try again."));
  EXPECT_EQ(counter->posts, 1);
  EXPECT_EQ(log.lines(), withActivations({}));
}

TEST_F(InviteTab, ACompleteSuccessEmptiesTheRecipientsAndNotTheMessage) {
  knowColleagues(@[ @"a@x.de", @"b@x.de" ]);
  grants(granted());
  open();
  [message() setString:@"hello"];
  invite(@"a@x.de,b@x.de");
  EXPECT_TRUE(alertShows("The folder is now shared."));
  EXPECT_EQ(text([recipients() stringValue]), "");
  EXPECT_EQ(text([message() string]), "hello");
  EXPECT_EQ(counter->posts, 2);
  EXPECT_EQ(log.lines(), withActivations({}));
}

TEST_F(InviteTab, AMalformedUserRecordIsNoEmployee) {
  knowColleagues(@[ @"a@x.de" ]);
  for (id value in @[ @"text", @[ @1 ], @5, [NSNull null] ]) {
    answer(kUserInfo, @{@"reply" : success(value)});
    open();
    EXPECT_FALSE([[controller sendInviteTab] isEmployee:@"s@x.de"]) << text(value);
  }
}
