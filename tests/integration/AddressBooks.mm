#include <gtest/gtest.h>

#include <filesystem>

#import "app/ContextMenuAppAppDelegate.h"
#import "tests/faults/EndedThreads.h"
#include "tests/support/AgentProcess.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/HeldReply.h"
#include "tests/support/Pump.h"
#include "tests/support/RepeatingTimer.h"
#include "tests/support/Strings.h"

namespace {

NSDictionary *contact(NSString *name, NSString *address) {
  return @{@"name" : name, @"primaryemail" : address};
}

NSString *const kBook = @"getEmployeeAddressBook";

struct AddressBooks : testing::Test {
  ContextMenuAppAppDelegate *delegate = [[ContextMenuAppAppDelegate alloc] init];

  ~AddressBooks() override { [delegate release]; }

  std::string entries() { return joined([delegate addressBookForShare]); }
  std::string addresses() { return joined([delegate employeeContacts]); }

  /// What the agent waits for in the call that is scripted with it.
  HeldReply hold;

  /// Starts a refresh in the background and returns when the agent has been called, which replies
  /// when the test releases the reply.
  void beginSlowRefresh(const AgentProcess &agent, NSDictionary *reply) {
    agent.setScript(@{kBook : hold.entry(@{@"reply" : reply})});
    [delegate updateAddressBook:nil];
    EXPECT_TRUE(pumpUntil([&] { return [agent.calls() count] == 1; }));
  }

  static std::string joined(NSArray *list) { return text([list componentsJoinedByString:@" | "]); }
};

}  // namespace

TEST_F(AddressBooks, ThereAreNoListsBeforeTheFirstFetch) {
  EXPECT_EQ([delegate addressBookForShare], nil);
  EXPECT_EQ([delegate employeeContacts], nil);
  EXPECT_EQ([delegate addressBookForSend], nil);
}

TEST_F(AddressBooks, EntriesAreSortedWithoutRegardToCaseAndAddressesKeepTheAgentsOrder) {
  AgentProcess agent;
  agent.answer(kBook, success(@[
                 contact(@"zoe", @"z@x"), contact(@"Bob", @"b@x"), contact(@"anna", @"a@x"),
                 contact(@"Álvaro", @"al@x"), contact(@"carl", @"c@x")
               ]));
  const CapturedLog log;
  [delegate getAddressBookForShareFolder];
  EXPECT_EQ(log.lines(), Lines{});
  EXPECT_EQ(entries(), "Álvaro<al@x> | anna<a@x> | Bob<b@x> | carl<c@x> | zoe<z@x>");
  EXPECT_EQ(addresses(), "z@x | b@x | a@x | al@x | c@x");
}

TEST_F(AddressBooks, NamesAreFormattedByTheirForm) {
  AgentProcess agent;
  agent.answer(kBook, success(@[
                 contact(@"Doe, John", @"a@b"), contact(@"John Doe", @"c@d"),
                 contact(@"Doe, John, Jr.", @"e@f")
               ]));
  [delegate getAddressBookForShareFolder];
  EXPECT_EQ(entries(), "Doe<e@f> | John Doe<a@b> | JohnDoe<c@d>");
}

TEST_F(AddressBooks, OddRecordsGiveEntriesAndNoCrash) {
  AgentProcess agent;
  agent.answer(kBook, success(@[
                 @{@"name" : @"NoAddress"}, @{@"primaryemail" : @"noname@x"}, @{},
                 @{@"name" : [NSNull null],
                   @"primaryemail" : @12},
                 @"no record", [NSNull null]
               ]));
  [delegate getAddressBookForShareFolder];
  EXPECT_EQ([[delegate addressBookForShare] count], 6u);
  EXPECT_EQ(addresses(), "noname@x");
}

TEST_F(AddressBooks, WithTheAgentDownBothListsAreEmptyAndNothingIsLogged) {
  const CapturedLog log;
  [delegate getAddressBookForShareFolder];
  EXPECT_EQ(log.lines(), Lines{});
  EXPECT_NE([delegate addressBookForShare], nil);
  EXPECT_EQ([[delegate addressBookForShare] count], 0u);
  EXPECT_NE([delegate employeeContacts], nil);
  EXPECT_EQ([[delegate employeeContacts] count], 0u);
}

TEST_F(AddressBooks, AFetchFromARefusingOrMalformedAgentLeavesBothListsEmptyAndLogsNothing) {
  AgentProcess agent;
  const CapturedLog log;
  for (id reply in @[
         refusal(5, @"no"), @{}, @"text", success(@"text"), success(@42), success([NSNull null]),
         success(@{@"name" : @"x"})
       ]) {
    agent.answer(kBook, reply);
    [delegate getAddressBookForShareFolder];
    EXPECT_EQ([[delegate addressBookForShare] count], 0u) << text(reply);
    EXPECT_EQ([[delegate employeeContacts] count], 0u) << text(reply);
  }
  EXPECT_EQ(log.lines(), Lines{});
}

TEST_F(AddressBooks, AnAgentThatDiesWhileItsReplyIsReadLeavesBothListsEmpty) {
  AgentProcess agent;
  agent.setScript(@{kBook : @{@"die" : @"whenRead"}});
  [delegate getAddressBookForShareFolder];
  EXPECT_EQ([[delegate addressBookForShare] count], 0u);
  EXPECT_EQ([[delegate employeeContacts] count], 0u);
}

TEST_F(AddressBooks, ARebuildDiscardsWhatWasAddedInBetween) {
  AgentProcess agent;
  agent.answer(kBook, success(@[ contact(@"Ann", @"a@x") ]));
  [delegate getAddressBookForShareFolder];
  [[delegate addressBookForShare] addObject:@"New<n@x>"];
  [[delegate employeeContacts] addObject:@"n@x"];
  [delegate getAddressBookForShareFolder];
  EXPECT_EQ(entries(), "Ann<a@x>");
  EXPECT_EQ(addresses(), "a@x");
}

TEST_F(AddressBooks, TheConditionalFetchDoesNothingWhileThereIsOneEntry) {
  AgentProcess agent;
  agent.answer(kBook, success(@[ contact(@"Ann", @"a@x") ]));
  [delegate getAddressBookForShareFolder];
  [[delegate employeeContacts] removeAllObjects];
  [delegate conditionalFetchAddressBook];
  EXPECT_EQ([agent.calls() count], 1u);
  EXPECT_EQ(addresses(), "");
}

TEST_F(AddressBooks, TheConditionalFetchLoadsWhileThereIsNoEntry) {
  AgentProcess agent;
  agent.answer(kBook, success(@[ contact(@"Ann", @"a@x") ]));
  [delegate conditionalFetchAddressBook];
  EXPECT_EQ(entries(), "Ann<a@x>");
}

TEST_F(AddressBooks, TheRefreshReturnsAtOnceAndFillsTheListsInTheBackground) {
  AgentProcess agent;
  agent.setScript(@{kBook : hold.entry(@{@"reply" : success(@[ contact(@"Ann", @"a@x") ])})});
  [delegate updateAddressBook:nil];
  EXPECT_EQ([delegate addressBookForShare], nil);
  hold.release();
  EXPECT_TRUE(pumpUntil([&] { return entries() == "Ann<a@x>"; }));
  EXPECT_EQ(addresses(), "a@x");
}

TEST_F(AddressBooks, TheListsAreEmptyFromTheStartOfARefreshUntilItsEnd) {
  AgentProcess agent;
  agent.answer(kBook, success(@[ contact(@"Ann", @"a@x") ]));
  [delegate getAddressBookForShareFolder];
  agent.setScript(@{kBook : hold.entry(@{@"reply" : success(@[ contact(@"Bob", @"b@x") ])})});
  const CapturedLog log;
  [delegate updateAddressBook:nil];
  EXPECT_TRUE(pumpUntil([&] { return entries().empty() && addresses().empty(); }));
  hold.release();
  EXPECT_TRUE(pumpUntil([&] { return entries() == "Bob<b@x>" && addresses() == "b@x"; }));
  EXPECT_EQ(log.lines(), Lines{});
}

TEST_F(AddressBooks, WhatIsAddedDuringARefreshIsInItsPlaceAfterwards) {
  AgentProcess agent;
  beginSlowRefresh(agent, success(@[ contact(@"Zoe", @"z@x"), contact(@"Bob", @"b@x") ]));
  [[delegate addressBookForShare] addObject:@"Max New<n@x>"];
  [[delegate employeeContacts] addObject:@"n@x"];
  hold.release();
  EXPECT_TRUE(pumpUntil([&] { return [[delegate addressBookForShare] count] == 3; }));
  EXPECT_EQ(entries(), "Bob<b@x> | Max New<n@x> | Zoe<z@x>");
  EXPECT_EQ(addresses(), "z@x | b@x | n@x");
}

TEST_F(AddressBooks, WhatIsAddedDuringARefreshAndListedByTheAgentIsThereOnce) {
  AgentProcess agent;
  beginSlowRefresh(agent, success(@[ contact(@"Max New", @"n@x"), contact(@"Bob", @"b@x") ]));
  [[delegate addressBookForShare] addObject:@"Max New<n@x>"];
  [[delegate employeeContacts] addObject:@"n@x"];
  hold.release();
  EXPECT_TRUE(pumpUntil([&] { return [[delegate addressBookForShare] count] == 2; }));
  EXPECT_EQ(entries(), "Bob<b@x> | MaxNew<n@x>");
  EXPECT_EQ(addresses(), "n@x | b@x");
}

TEST_F(AddressBooks, WhatIsAddedDuringARefreshThatGetsNoReplyStays) {
  AgentProcess agent;
  EndedThreads *const threads = [[[EndedThreads alloc] init] autorelease];
  const CapturedLog log;
  beginSlowRefresh(agent, @{});
  [[delegate addressBookForShare] addObject:@"Max New<n@x>"];
  [[delegate employeeContacts] addObject:@"n@x"];
  hold.release();
  EXPECT_TRUE(pumpUntil([&] { return threads->count > 0; }));
  EXPECT_EQ(log.lines(), Lines{});
  EXPECT_EQ(entries(), "Max New<n@x>");
  EXPECT_EQ(addresses(), "n@x");
}

TEST_F(AddressBooks, OfTwoRebuildsAtATimeTheNewerOnesListsStay) {
  AgentProcess agent;
  EndedThreads *const threads = [[[EndedThreads alloc] init] autorelease];
  agent.setScript(@{
    kBook : @[
      hold.entry(
          @{@"reply" : success(@[ contact(@"Old", @"o@x") ])}),
      @{@"reply" : success(@[ contact(@"New", @"n@x") ])}
    ]
  });
  [delegate updateAddressBook:nil];
  ASSERT_TRUE(pumpUntil([&] { return [agent.calls() count] == 1; }));
  // The newer one has begun when it waits for the agent.
  const RepeatingTimer release(NSConnectionReplyMode, [&] { hold.release(); });
  [delegate getAddressBookForShareFolder];
  EXPECT_TRUE(pumpUntil([&] { return threads->count > 0; }));
  EXPECT_EQ(entries(), "New<n@x>");
  EXPECT_EQ(addresses(), "n@x");
}

TEST_F(AddressBooks, AReaderKeepsItsListWhileARefreshReplacesIt) {
  AgentProcess agent;
  agent.setScript(@{kBook : @{@"contacts" : @500}});
  [delegate getAddressBookForShareFolder];
  [delegate updateAddressBook:nil];
  bool sawNewList = false;
  NSArray *const first = [delegate addressBookForShare];
  EXPECT_TRUE(pumpUntil([&] {
    NSArray *const list = [delegate addressBookForShare];
    for (NSString *entry in list) EXPECT_GT([entry length], 0u);
    sawNewList = list != first && [list count] == 500;
    return sawNewList;
  }));
  EXPECT_EQ([first count], 500u);
}

TEST_F(AddressBooks, ManyRefreshesLeaveNoDescriptorBehind) {
  AgentProcess agent;
  agent.setScript(@{kBook : @{@"contacts" : @20}});
  const auto openDescriptors = [] {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
  };
  const auto refresh = [&] {
    [delegate getAddressBookForShareFolder];
    NSArray *const former = [delegate addressBookForShare];
    [delegate updateAddressBook:nil];
    ASSERT_TRUE(pumpUntil([&] {
      return
          [delegate addressBookForShare] != former && [[delegate addressBookForShare] count] == 20;
    }));
  };
  refresh();
  const auto before = openDescriptors();
  for (int i = 0; i < 20; ++i) {
    @autoreleasepool {
      refresh();
    }
  }
  // The last background thread may still be ending.
  EXPECT_TRUE(pumpUntil([&] { return openDescriptors() <= before; }));
}

TEST_F(AddressBooks, TwentyThousandContactsAreAllThereAndInOrder) {
  AgentProcess agent;
  agent.setScript(@{kBook : @{@"contacts" : @20000}});
  [delegate getAddressBookForShareFolder];
  NSArray *const list = [delegate addressBookForShare];
  ASSERT_EQ([list count], 20000u);
  EXPECT_EQ([[delegate employeeContacts] count], 20000u);
  for (NSUInteger i = 1; i < [list count]; ++i) {
    ASSERT_NE([[list objectAtIndex:i - 1] localizedCaseInsensitiveCompare:[list objectAtIndex:i]],
              NSOrderedDescending)
        << i;
  }
}
