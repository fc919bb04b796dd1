#import "agent/Records.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

#import "agent/BVDataModelController.h"
#import "agent/ResultDictionary.h"
#include "tests/support/AgentProcess.h"
#include "tests/support/Strings.h"

namespace {

using Visits = std::vector<std::string>;

std::string described(NSString *type, const std::array<BOOL, 4> &flags, NSString *first,
                      NSString *last, NSString *address) {
  std::string all = text(type) + "|";
  for (const BOOL flag : flags) all += flag ? "y" : "n";
  return all + "|" + text(first) + "|" + text(last) + "|" + text(address);
}

Visits visitsOf(id entries, bool *complete = nullptr) {
  Visits visits;
  const bool all = agent::visitAccessEntries(entries, [&](const agent::AccessEntry &entry) {
    visits.push_back(described(entry.type,
                               {entry.canDownload, entry.canUpload, entry.canDelete, entry.isOwner},
                               entry.firstName, entry.lastName, entry.address));
  });
  if (complete != nullptr) *complete = all;
  return visits;
}

/// Entry by entry and key by key: slow, but obviously correct.
Visits expectedVisitsOf(NSArray *entries) {
  Visits visits;
  for (id element in entries) {
    const bool isEntry = [element isKindOfClass:[NSDictionary class]];
    NSDictionary *const entry = isEntry ? element : [NSDictionary dictionary];
    const auto flag = [&](NSString *key) { return agent::flagIn(entry, key); };
    const auto string = [&](NSString *key) { return agent::stringIn(entry, key); };
    visits.push_back(
        described(string(@"type"),
                  {flag(@"candownload"), flag(@"canupload"), flag(@"candelete"), flag(@"isowner")},
                  string(@"userfname"), string(@"userlname"), string(@"useremail")));
  }
  return visits;
}

NSMutableDictionary *person(int number) {
  return [NSMutableDictionary dictionaryWithDictionary:@{
    @"type" : @"user",
    @"candownload" : @true,
    @"canupload" : [NSNumber numberWithBool:number % 2 == 0],
    @"candelete" : @1,
    @"isowner" : @false,
    @"userfname" : [NSString stringWithFormat:@"First %d", number],
    @"userlname" : @"Läst",
    @"useremail" : [NSString stringWithFormat:@"p%d@x.org", number]
  }];
}

NSMutableArray *persons(int count) {
  NSMutableArray *const all = [NSMutableArray array];
  for (int i = 0; i < count; ++i) [all addObject:person(i)];
  return all;
}

struct AccessEntries : testing::Test {
  AgentProcess agent;

  id remote(id entries) const {
    agent.answer(@"getAccess::", success(entries));
    BVDataModelController *const agent = [[[BVDataModelController alloc] init] autorelease];
    // clang-format off
    return [[agent getAccess:@"folder":YES] objectForKey:@"value"];
    // clang-format on
  }

  /// Both as few entries, which are read one by one, and among many, which are read in bulk.
  void expectAsReadOneByOne(NSArray *entries) const {
    EXPECT_EQ(visitsOf(remote(entries)), expectedVisitsOf(entries));
    NSMutableArray *const many = persons(30);
    [many addObjectsFromArray:entries];
    EXPECT_EQ(visitsOf(remote(many)), expectedVisitsOf(many));
  }

  /// An entry for each value, which stands under the key.
  void expectEachUnder(NSString *key, NSArray *values) const {
    NSMutableArray *const entries = [NSMutableArray array];
    for (id value in values) {
      NSMutableDictionary *const entry = person(1);
      [entry setObject:value forKey:key];
      [entries addObject:entry];
    }
    expectAsReadOneByOne(entries);
  }
};

}  // namespace

TEST_F(AccessEntries, AThousandAreVisitedInTheAgentsOrder) {
  EXPECT_EQ(visitsOf(remote(persons(1000))), expectedVisitsOf(persons(1000)));
}

TEST_F(AccessEntries, AFewAreVisitedInTheAgentsOrder) {
  EXPECT_EQ(visitsOf(remote(persons(3))), expectedVisitsOf(persons(3)));
}

TEST_F(AccessEntries, AnEmptyListHasNoVisits) {
  bool complete = false;
  EXPECT_EQ(visitsOf(remote(@[]), &complete), Visits());
  EXPECT_TRUE(complete);
}

TEST_F(AccessEntries, FlagsMayBeBooleansNumbersOrText) {
  for (NSString *key in @[ @"candownload", @"canupload", @"candelete", @"isowner" ]) {
    expectEachUnder(key, @[
      @true, @false, @0, @1, @2, @-1, @0.5, @"1", @"0", @"YES", @"true", @"no", @"", @1000000000000
    ]);
  }
}

TEST_F(AccessEntries, FlagsThatAreNeitherAreNo) {
  expectEachUnder(@"candownload", @[ [NSNull null], @[], @{}, @[ @1 ], @"<null>" ]);
}

TEST_F(AccessEntries, NamesAndAddressesThatAreNoStringsAreNil) {
  for (NSString *key in @[ @"type", @"userfname", @"userlname", @"useremail" ]) {
    expectEachUnder(key, @[ [NSNull null], @42, @true, @[], @{}, @"<null>", @"42", @"" ]);
  }
}

TEST_F(AccessEntries, MissingFieldsAreNilOrNo) {
  NSMutableArray *const entries = [NSMutableArray arrayWithObject:@{}];
  for (NSString *key in [person(1) allKeys]) {
    NSMutableDictionary *const entry = person(1);
    [entry removeObjectForKey:key];
    [entries addObject:entry];
  }
  expectAsReadOneByOne(entries);
}

TEST_F(AccessEntries, EntriesThatAreNoDictionariesAreVisitedEmpty) {
  expectAsReadOneByOne(@[ @"text", @42, [NSNull null], @[], @[ @"type" ], person(1) ]);
}

TEST_F(AccessEntries, WhatIsNoArrayHasNoEntries) {
  for (id value in @[ @"text", @42, @{@"type" : @"user"} ]) {
    bool complete = false;
    EXPECT_EQ(visitsOf(remote(value), &complete), Visits()) << text(value);
    EXPECT_TRUE(complete);
  }
  EXPECT_EQ(visitsOf(nil), Visits());
}

TEST_F(AccessEntries, ALocalArrayIsReadTheSameWay) {
  EXPECT_EQ(visitsOf(persons(20)), expectedVisitsOf(persons(20)));
}

TEST_F(AccessEntries, ANumberWhoseTextDoesNotTellItIsStillAFlag) {
  NSMutableArray *const entries = persons(20);
  for (NSNumber *number in @[ [NSNumber numberWithDouble:NAN], @-0.0, @1e-320, @1e300 ]) {
    NSMutableDictionary *const entry = person(1);
    [entry setObject:number forKey:@"candownload"];
    [entries addObject:entry];
  }
  EXPECT_EQ(visitsOf(entries), expectedVisitsOf(entries));
}

TEST_F(AccessEntries, AnAgentThatIsGoneIsNotedAsIncomplete) {
  id const entries = remote(persons(20));
  agent.process().signal(SIGKILL);
  agent.process().waitForEnd();
  bool complete = true;
  visitsOf(entries, &complete);
  EXPECT_FALSE(complete);
}
