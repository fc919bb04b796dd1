#include "tests/support/CapturedLog.h"
#include "tests/ui/ActivationsInLog.h"
#include "tests/ui/PermissionsTab.h"
#import "text/LocalizedText.h"

using PermissionsTabList = PermissionsTab;

namespace {

NSString *const kUnreachable = @"cannotConnectToBrisvaleNowTextKey";
NSString *const kNobody = @"notSharingTextMessageKey";

NSDictionary *changed(NSDictionary *entry, NSString *key, id value) {
  NSMutableDictionary *const other = [NSMutableDictionary dictionaryWithDictionary:entry];
  [other setObject:value forKey:key];
  return other;
}

}  // namespace

TEST_F(PermissionsTabList, ShowsEachPersonInARowOfItsOwnInTheAgentsOrder) {
  answerList(@[ reader(@"zoe", @"young", @"z@x.org"), writer(@"adam", @"old", @"a@x.org") ]);
  openLoaded();
  EXPECT_TRUE(showsList());
  EXPECT_EQ(text([nameIn(0) stringValue]), "Zoe Young");
  EXPECT_EQ(text([accessIn(0) titleOfSelectedItem]), "Read only");
  EXPECT_EQ(text([nameIn(1) stringValue]), "Adam Old");
  EXPECT_EQ(text([accessIn(1) titleOfSelectedItem]), "Read and write");
}

TEST_F(PermissionsTabList, ARowKeepsWhatTheAgentNeedsToKnowOfThePerson) {
  answerList(@[ writer(@"adam", @"old", @"a@x.org") ]);
  openLoaded();
  EXPECT_EQ(text([person(0) useremail]), "a@x.org");
  EXPECT_EQ([person(0) accessPermission], 1);
  EXPECT_TRUE([person(0) isNotOwner]);
}

TEST_F(PermissionsTabList, TheNamesToolTipIsTheAddress) {
  answerList(@[ writer(@"adam", @"old", @"a@x.org") ]);
  openLoaded();
  EXPECT_EQ(text([nameIn(0) toolTip]), "a@x.org");
}

TEST_F(PermissionsTabList, AskingForTheListNamesTheFolderAndThatItIsAnId) {
  open(@"folder-7");
  ASSERT_TRUE(waitUntilLoaded());
  EXPECT_TRUE(([argumentsOfLast(@"getAccess::") isEqual:@[ @"folder-7", @1 ]]));
}

TEST_F(PermissionsTabList, OpeningTheWindowRunsExactlyOneLoad) {
  answerList(people(2));
  openLoaded();
  handlePostedEvents();
  EXPECT_EQ(calls(@"getAccess::"), 1u);
}

TEST_F(PermissionsTabList, TheFirstThingToBeSeenIsThatTheListIsBeingFetched) {
  agent.setScript(@{@"getAccess::" : held(people(1))});
  openWindow();
  EXPECT_TRUE(showsStatus(localizedText(@"fetchingEmployeeListKey")));
  [tab setFilePath:@"folder-1"];
  EXPECT_TRUE(handleEventsUntil([&] { return ![spinner() isHidden]; }));
  EXPECT_TRUE(showsStatus(localizedText(@"fetchingEmployeeListKey")));
  resumeAgent();
  EXPECT_TRUE(handleEventsUntil([&] { return showsList(); }));
}

TEST_F(PermissionsTabList, TheApplicationGoesOnWhileTheListIsBeingFetched) {
  agent.setScript(@{@"getAccess::" : held(people(1))});
  open();
  int turns = 0;
  EXPECT_TRUE(handleEventsUntil([&] {
    turns += [spinner() isHidden] ? 0 : 1;
    return turns > 10;
  }));
  resumeAgent();
  EXPECT_TRUE(handleEventsUntil([&] { return showsList(); }));
}

TEST_F(PermissionsTabList, OnlyOwnersAndGranteesOfOtherTypesMakeAnEmptyList) {
  NSDictionary *const somebody = writer(@"a", @"b", @"a@x.org");
  answerList(@[ changed(somebody, @"isowner", @true), changed(somebody, @"type", @"group") ]);
  openLoaded();
  EXPECT_TRUE(showsStatus(localizedText(kNobody)));
  EXPECT_EQ([[tab personList] count], 0u);
}

TEST_F(PermissionsTabList, AUserWhoMayNotDownloadIsNotListedWhateverElseIsAllowed) {
  answerList(@[
    changed(writer(@"a", @"b", @"a@x.org"), @"candownload", @false), reader(@"c", @"d", @"c@x.org")
  ]);
  openLoaded();
  EXPECT_EQ([[tab personList] count], 1u);
  EXPECT_EQ(text([nameIn(0) stringValue]), "C D");
}

TEST_F(PermissionsTabList, AUserWhoMayUploadButNotDeleteIsListedAsAReader) {
  answerList(@[ changed(writer(@"a", @"b", @"a@x.org"), @"candelete", @false) ]);
  openLoaded();
  EXPECT_EQ(text([accessIn(0) titleOfSelectedItem]), "Read only");
  EXPECT_EQ([person(0) accessPermission], 0);
}

TEST_F(PermissionsTabList, AnEmptyReplySaysThatThereIsNoConnection) {
  openLoaded();
  EXPECT_TRUE(showsStatus(localizedText(kUnreachable)));
  EXPECT_EQ(sheet(), nil);
}

TEST_F(PermissionsTabList, AMissingReplySaysThatThereIsNoConnection) {
  agent.setScript(@{@"getAccess::" : @{@"nil" : @1}});
  openLoaded();
  EXPECT_TRUE(showsStatus(localizedText(kUnreachable)));
}

TEST_F(PermissionsTabList, AnAgentThatDiesOverTheQuestionIsNoConnection) {
  agent.setScript(@{@"getAccess::" : @{@"die" : @"before"}});
  openLoaded();
  EXPECT_TRUE(showsStatus(localizedText(kUnreachable)));
}

TEST_F(PermissionsTabList, AnAgentThatDiesOverTheAnswerIsNoConnection) {
  agent.setScript(@{@"getAccess::" : @{@"die" : @"whenRead"}});
  openLoaded();
  EXPECT_TRUE(showsStatus(localizedText(kUnreachable)));
}

TEST_F(PermissionsTabList, AFailedLoadKeepsTheFormerListOutOfSight) {
  answerList(people(3));
  openLoaded();
  NSMutableArray *const former = [tab personList];
  agent.setScript(@{});
  [tab listenNotification:nil];
  EXPECT_TRUE(showsStatus(localizedText(kUnreachable)));
  EXPECT_EQ([tab personList], former);
  EXPECT_EQ([former count], 3u);
}

TEST_F(PermissionsTabList, RepliesThatAreNoListShowNobody) {
  for (id reply in @[
         @{@"error" : @0}, success(@"text"), success(@42), success(@{}), refusal(1, @"why")
       ]) {
    agent.answer(@"getAccess::", reply);
    openLoaded();
    EXPECT_TRUE(showsStatus(localizedText(kNobody))) << text(reply);
    close();
  }
}

TEST_F(PermissionsTabList, MalformedEntriesAreLeftOutAndTheOthersShown) {
  NSDictionary *const somebody = reader(@"ann", @"lee", @"a@x.org");
  answerList(@[
    @"text", @42, [NSNull null], @[], @{}, changed(somebody, @"type", @1), somebody,
    changed(somebody, @"candownload", @{}), changed(somebody, @"type", @"User")
  ]);
  openLoaded();
  ASSERT_EQ([[tab personList] count], 1u);
  EXPECT_EQ(text([nameIn(0) stringValue]), "Ann Lee");
}

TEST_F(PermissionsTabList, APersonWithoutAFirstNameIsShownByTheAddress) {
  NSDictionary *const somebody = reader(@"", @"lee", @"a@x.org");
  answerList(@[ somebody, changed(somebody, @"userfname", [NSNull null]) ]);
  openLoaded();
  EXPECT_EQ(text([nameIn(0) stringValue]), "a@x.org");
  EXPECT_EQ(text([nameIn(1) stringValue]), "a@x.org");
}

TEST_F(PermissionsTabList, AnInvitationLoadsTheListAnewAndAtOnce) {
  answerList(people(1));
  openLoaded();
  answerList(people(4));
  [[NSNotificationCenter defaultCenter] postNotificationName:@"UserAddedToShareFolder" object:nil];
  EXPECT_EQ([[tab personList] count], 4u);
  EXPECT_TRUE(showsList());
  EXPECT_TRUE([spinner() isHidden]);
}

TEST_F(PermissionsTabList, ALoadIsNotLoggedWhetherItSucceedsIsRefusedOrGetsNoReply) {
  agent.setScript(@{
    @"getAccess::" : @[
      @{@"reply" : success(people(2))}, @{@"reply" : refusal(1, @"why")},
      @{@"reply" : @{}},
      @{@"nil" : @1}
    ]
  });
  openWindow();
  const CapturedLog log;
  const ActivationsInLog activations(log);
  [tab setFilePath:@"folder-1"];
  ASSERT_TRUE(waitUntilLoaded());
  for (int i = 0; i < 3; ++i) [tab listenNotification:nil];
  EXPECT_EQ(calls(@"getAccess::"), 4u);
  EXPECT_EQ(log.lines(), activations.with({}));
}

TEST_F(PermissionsTabList, BothNoticesOfAnInvitationAreALoadEach) {
  answerList(people(1));
  openLoaded();
  for (int i = 0; i < 2; ++i) {
    [[NSNotificationCenter defaultCenter] postNotificationName:@"UserAddedToShareFolder"
                                                        object:nil];
  }
  EXPECT_EQ(calls(@"getAccess::"), 3u);
}

TEST_F(PermissionsTabList, AListThatHasBecomeEmptyStaysWhereItIs) {
  answerList(people(2));
  openLoaded();
  answerList(@[]);
  [tab listenNotification:nil];
  EXPECT_TRUE(showsList());
  EXPECT_EQ(text([status() stringValue]), text(localizedText(kNobody)));
  EXPECT_EQ([[tab personList] count], 0u);
}

TEST_F(PermissionsTabList, TheListIsStoredAsItIsAndChangedInPlace) {
  openWindow();
  NSMutableArray *const rows = [NSMutableArray array];
  const NSUInteger references = [rows retainCount];
  PermissionTabController *const other = [[PermissionTabController alloc] init];
  [other setPersonList:rows];
  EXPECT_EQ([other personList], rows);
  EXPECT_EQ([rows retainCount], references);
  SharedWith *const row = [[[SharedWith alloc] init] autorelease];
  [other insertObject:row inPersonListAtIndex:0];
  EXPECT_EQ([rows objectAtIndex:0], row);
  [other removeObjectFromPersonListAtIndex:0];
  EXPECT_EQ([rows count], 0u);
  [other disconnectFromWindow];
  [other release];
}
