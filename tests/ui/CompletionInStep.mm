#include <gtest/gtest.h>

#import "addressbook/AddressBookCompletion.h"
#import "addressbook/IndexedBook.h"
#include "tests/support/AgentProcess.h"
#include "tests/support/HeldReply.h"
#include "tests/support/Pump.h"
#include "tests/support/RepeatingTimer.h"
#include "tests/support/Strings.h"
#include "tests/ui/Application.h"
#import "windows/share/InviteTabController.h"

namespace {

NSString *const kBook = @"getEmployeeAddressBook";

NSDictionary *contact(NSString *name, NSString *address) {
  return @{@"name" : name, @"primaryemail" : address};
}

/// Completion and what happens to the delegate's address book.
struct CompletionInStep : testing::Test {
  AgentProcess agent;
  ContextMenuAppAppDelegate *delegate = loadedDelegate();

  CompletionInStep() { load(@[ contact(@"Anna", @"anna@x"), contact(@"Dan", @"dan@x") ]); }
  ~CompletionInStep() override {
    [delegate setAddressBookForShare:nil];
    (void)takenIndex();
  }

  void load(NSArray *contacts) {
    agent.answer(kBook, success(contacts));
    [delegate getAddressBookForShareFolder];
  }

  std::string completed(NSString *substring) const {
    return text([[delegate completionsForSubstring:substring] componentsJoinedByString:@" "]);
  }

  /// The index that the delegate completes from, which the delegate loses by this.
  IndexedBook *takenIndex() const {
    return [[[delegate completion] exchangeIndex:nil] autorelease];
  }
};

}  // namespace

TEST_F(CompletionInStep, AfterALoadTheNewEntriesAreOffered) {
  EXPECT_EQ(completed(@"an"), "Anna<anna@x> Dan<dan@x>");
  load(@[ contact(@"Ian", @"ian@x") ]);
  EXPECT_EQ(completed(@"an"), "Ian<ian@x>");
}

TEST_F(CompletionInStep, TheLoadBringsTheIndexAlong) {
  IndexedBook *const index = takenIndex();
  EXPECT_TRUE([index updateFromBook:[delegate addressBookForShare]]);
  EXPECT_EQ([index count], 2u);
}

TEST_F(CompletionInStep, WhileTheAgentIsAskedNothingIsOfferedAndThenTheNewEntries) {
  // Held while the test checks the completions.
  const HeldReply hold;
  agent.setScript(@{kBook : hold.entry(@{@"reply" : success(@[ contact(@"Ian", @"ian@x") ])})});
  NSArray *const open = [delegate completionsForSubstring:@"an"];
  [delegate updateAddressBook:nil];
  EXPECT_TRUE(pumpUntil([&] { return completed(@"an").empty(); }));
  hold.release();
  EXPECT_TRUE(pumpUntil([&] { return completed(@"an") == "Ian<ian@x>"; }));
  // The list that was open all the time.
  EXPECT_EQ(text([open componentsJoinedByString:@" "]), "Anna<anna@x> Dan<dan@x>");
}

TEST_F(CompletionInStep, TypingGoesOnThroughManyRefreshes) {
  agent.setScript(@{kBook : @{@"contacts" : @2000}});
  for (int refresh = 0; refresh < 20; ++refresh) {
    @autoreleasepool {
      NSArray *const former = [delegate addressBookForShare];
      [delegate updateAddressBook:nil];
      NSArray *answer = nil;
      ASSERT_TRUE(pumpUntil([&] {
        answer = [delegate completionsForSubstring:@"e"];
        for (NSString *entry in answer) EXPECT_GT([entry length], 0u);
        return [delegate addressBookForShare] != former && [answer count] > 0;
      }));
    }
  }
}

TEST_F(CompletionInStep, AColleagueFoundByTheInviteTabIsOfferedFromThenOn) {
  EXPECT_EQ(completed(@"zoe"), "");
  agent.answer(@"getUserInfo::",
               success(
                   @{@"accountemployee" : @1,
                     @"name" : @"Zoe",
                     @"primaryemail" : @"zoe@x"}));
  InviteTabController *const tab = [[[InviteTabController alloc] init] autorelease];
  EXPECT_TRUE([tab isEmployee:@"zoe@x"]);
  EXPECT_EQ(completed(@"zoe"), "Zoe<zoe@x>");
  EXPECT_EQ(completed(@"@x"), "Anna<anna@x> Dan<dan@x> Zoe<zoe@x>");
}

TEST_F(CompletionInStep, AColleagueFoundWhileTheBookIsRefreshedIsInTheNewBookAndItsIndex) {
  const HeldReply hold;
  agent.setScript(@{
    kBook : hold.entry(
        @{@"reply" : success(@[ contact(@"Ian", @"ian@x") ])}),
    @"getUserInfo::" : @{
      @"reply" : success(
          @{@"accountemployee" : @1,
            @"name" : @"Dian",
            @"primaryemail" : @"dian@x"})
    }
  });
  [delegate updateAddressBook:nil];
  ASSERT_TRUE(pumpUntil([&] { return [agent.calls() count] == 2; }));
  InviteTabController *const tab = [[[InviteTabController alloc] init] autorelease];
  // The agent, which replies to one request after the other, is asked for both.
  const RepeatingTimer release(NSConnectionReplyMode, [&] { hold.release(); });
  EXPECT_TRUE([tab isEmployee:@"dian@x"]);
  EXPECT_TRUE(pumpUntil([&] { return [[delegate addressBookForShare] count] == 2; }));
  EXPECT_EQ(completed(@"ian"), "Ian<ian@x> Dian<dian@x>");
  EXPECT_TRUE([[delegate employeeContacts] containsObject:@"dian@x"]);
  IndexedBook *const index = takenIndex();
  EXPECT_EQ([index count], 2u);
}

TEST_F(CompletionInStep, ABookSetThroughThePropertyIsOffered) {
  [delegate setAddressBookForShare:[NSMutableArray arrayWithObject:@"Fanny<fanny@x>"]];
  EXPECT_EQ(completed(@"an"), "Fanny<fanny@x>");
  [delegate setAddressBookForShare:nil];
  EXPECT_EQ(completed(@"an"), "");
}

TEST_F(CompletionInStep, AnEntryTakenOutOfTheBookIsNoLongerOffered) {
  EXPECT_EQ(completed(@"an"), "Anna<anna@x> Dan<dan@x>");
  [[delegate addressBookForShare] removeObjectAtIndex:0];
  EXPECT_EQ(completed(@"an"), "Dan<dan@x>");
}
