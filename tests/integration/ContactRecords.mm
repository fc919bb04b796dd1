#import "agent/Records.h"

#include <gtest/gtest.h>

#import "agent/BVDataModelController.h"
#include "tests/support/AgentProcess.h"
#include "tests/support/Strings.h"

namespace {

using Visits = std::vector<std::string>;

/// The records that a visit gets, "name|address" each.
Visits visitsOf(id records, bool *complete = nullptr) {
  Visits visits;
  const bool all = agent::visitContactRecords(records, [&](NSString *name, NSString *address) {
    visits.push_back(text(name) + "|" + text(address));
  });
  if (complete != nullptr) *complete = all;
  return visits;
}

/// Record by record and key by key: slow, but obviously correct.
Visits expectedVisitsOf(NSArray *records) {
  Visits visits;
  for (id record in records) {
    id name = nil;
    id address = nil;
    if ([record isKindOfClass:[NSDictionary class]]) {
      name = [record objectForKey:@"name"];
      address = [record objectForKey:@"primaryemail"];
    }
    if (![name isKindOfClass:[NSString class]]) name = nil;
    if (![address isKindOfClass:[NSString class]]) address = nil;
    visits.push_back(text(name) + "|" + text(address));
  }
  return visits;
}

NSDictionary *contact(id name, id address) {
  return [NSDictionary dictionaryWithObjectsAndKeys:name, @"name", address, @"primaryemail", nil];
}

NSArray *ordinaryContacts(int count) {
  NSMutableArray *const contacts = [NSMutableArray array];
  for (int i = 0; i < count; ++i) {
    [contacts addObject:contact([NSString stringWithFormat:@"Name %d", i],
                                [NSString stringWithFormat:@"a%d@b", i])];
  }
  return contacts;
}

struct ContactRecords : testing::Test {
  AgentProcess agent;

  /// The records as they are in the agent's process.
  id remote(id records) {
    agent.answer(@"getEmployeeAddressBook", success(records));
    NSDictionary *const reply =
        [[[[BVDataModelController alloc] init] autorelease] getEmployeeAddressBook];
    return [reply objectForKey:@"value"];
  }

  /// Expects that a remote book is visited as when it is read record by record.
  void expectAsRead(NSArray *records) {
    bool complete = false;
    EXPECT_EQ(visitsOf(remote(records), &complete), expectedVisitsOf(records));
    EXPECT_TRUE(complete);
  }
};

}  // namespace

TEST_F(ContactRecords, OrdinaryRecordsAreVisitedInOrder) {
  expectAsRead(ordinaryContacts(100));
}

TEST_F(ContactRecords, AnEmptyBookHasNoVisits) {
  expectAsRead(@[]);
}

TEST_F(ContactRecords, OneRecordIsVisited) {
  expectAsRead(ordinaryContacts(1));
}

TEST_F(ContactRecords, ABookOfSeveralPartsIsVisitedWhole) {
  expectAsRead(ordinaryContacts(20001));
}

TEST_F(ContactRecords, MissingFieldsAreNil) {
  NSMutableArray *const records = [[ordinaryContacts(20) mutableCopy] autorelease];
  [records replaceObjectAtIndex:3 withObject:@{@"name" : @"only a name"}];
  [records replaceObjectAtIndex:9 withObject:@{@"primaryemail" : @"only@address"}];
  [records replaceObjectAtIndex:15 withObject:@{}];
  expectAsRead(records);
}

TEST_F(ContactRecords, NullAndWronglyTypedFieldsAreNil) {
  NSMutableArray *const records = [[ordinaryContacts(20) mutableCopy] autorelease];
  [records replaceObjectAtIndex:0 withObject:contact([NSNull null], @"a@b")];
  [records replaceObjectAtIndex:4 withObject:contact(@42, @17)];
  [records replaceObjectAtIndex:5 withObject:contact(@"x", @[ @"a@b" ])];
  [records replaceObjectAtIndex:19 withObject:contact(@{@"first" : @"x"}, [NSNull null])];
  expectAsRead(records);
}

TEST_F(ContactRecords, ADictionaryThatClaimsToBeAStringIsNone) {
  NSMutableArray *const records = [[ordinaryContacts(20) mutableCopy] autorelease];
  [records replaceObjectAtIndex:3
                     withObject:contact(@{@"classForCoder" : @"NSString"},
                                        @{@"classForCoder" : @"NSMutableString"})];
  [records replaceObjectAtIndex:5 withObject:contact(@"{classForCoder = x; }", @"{")];
  expectAsRead(records);
}

TEST_F(ContactRecords, ASeparatorInWhatADictionaryClaimsToBeDoesNoHarm) {
  NSMutableArray *const records = [[ordinaryContacts(20) mutableCopy] autorelease];
  NSDictionary *const claimant = @{@"classForCoder" : @"NSString\x1fNSString"};
  [records replaceObjectAtIndex:3 withObject:contact(claimant, claimant)];
  [records replaceObjectAtIndex:9 withObject:contact(@42, @17)];
  expectAsRead(records);
}

TEST_F(ContactRecords, TextThatLooksLikeANullOrANumberIsText) {
  NSMutableArray *const records = [[ordinaryContacts(20) mutableCopy] autorelease];
  [records replaceObjectAtIndex:2 withObject:contact(@"<null>", @"<null>")];
  [records replaceObjectAtIndex:3 withObject:contact(@"42", @"(a, b)")];
  [records replaceObjectAtIndex:4 withObject:contact(@"", @"")];
  expectAsRead(records);
}

TEST_F(ContactRecords, TheSeparatorOfTheTransferInANameDoesNoHarm) {
  NSMutableArray *const records = [[ordinaryContacts(50) mutableCopy] autorelease];
  [records replaceObjectAtIndex:7
                     withObject:contact(@"a\x1f\x1f"
                                        @"b",
                                        @"c\x1f"
                                        @"d@e")];
  [records replaceObjectAtIndex:49 withObject:contact(@"\x1f", @"\x1f")];
  expectAsRead(records);
}

TEST_F(ContactRecords, RecordsThatAreNoDictionariesAreVisitedEmpty) {
  NSMutableArray *const records = [[ordinaryContacts(50) mutableCopy] autorelease];
  [records replaceObjectAtIndex:0 withObject:@"a string"];
  [records replaceObjectAtIndex:23 withObject:@7];
  [records replaceObjectAtIndex:24 withObject:[NSNull null]];
  [records replaceObjectAtIndex:25 withObject:@[ @{@"name" : @"inner"} ]];
  expectAsRead(records);
}

TEST_F(ContactRecords, NamesInEveryScriptArriveAsTheyAre) {
  expectAsRead(@[
    contact(@"山田, 太郎", @"山@例.jp"), contact(@"😀\n\"%@%n\\", @"a b"), contact(@"علي", @"x"),
    contact(@"é", @"\t"), contact(@"a", @"b"), contact(@"c", @"d"), contact(@"e", @"f"),
    contact(@"g", @"h"), contact(@"i", @"j")
  ]);
}

TEST_F(ContactRecords, WhatIsNoArrayHasNoRecords) {
  bool complete = false;
  EXPECT_EQ(visitsOf(remote(@"text"), &complete), Visits());
  EXPECT_TRUE(complete);
  EXPECT_EQ(visitsOf(remote(@{@"name" : @"n", @"primaryemail" : @"e"}), &complete), Visits());
  EXPECT_TRUE(complete);
  EXPECT_EQ(visitsOf(nil, &complete), Visits());
  EXPECT_TRUE(complete);
}

TEST_F(ContactRecords, ALocalArrayIsReadTheSameWay) {
  NSArray *const records = @[ contact(@"a", @"b"), contact([NSNull null], @5), @"x" ];
  EXPECT_EQ(visitsOf(records), expectedVisitsOf(records));
}

TEST_F(ContactRecords, AnAgentThatIsGoneIsNotedAsIncomplete) {
  id const records = remote(ordinaryContacts(100));
  agent.process().signal(SIGKILL);
  agent.process().waitForEnd();
  bool complete = true;
  EXPECT_EQ(visitsOf(records, &complete), Visits());
  EXPECT_FALSE(complete);
}
