#import "addressbook/AddressBookLists.h"

#include <gtest/gtest.h>

#import "addressbook/AddressBookRebuild.h"
#import "addressbook/IndexedBook.h"
#include "tests/support/Strings.h"

namespace {

struct AddressBookListsTest : testing::Test {
  AddressBookLists *lists = [[AddressBookLists alloc] init];

  AddressBookListsTest() {
    [lists->entries addObjectsFromArray:@[ @"bob<b@x>", @"Zoe<z@x>" ]];
    [lists->addresses addObjectsFromArray:@[ @"z@x", @"b@x" ]];
    [lists sortAndIndex];
  }
  ~AddressBookListsTest() override { [lists release]; }

  std::string entries() const { return joined(lists->entries); }
  std::string addresses() const { return joined(lists->addresses); }
  static std::string joined(NSArray *list) { return text([list componentsJoinedByString:@" | "]); }
};

}  // namespace

TEST_F(AddressBookListsTest, AnAddedEntryGoesToItsPlaceAndItsAddressToTheEnd) {
  [lists mergeEntries:@[ @"Max M<m@x>" ] addresses:@[ @"m@x" ]];
  EXPECT_EQ(entries(), "bob<b@x> | Max M<m@x> | Zoe<z@x>");
  EXPECT_EQ(addresses(), "z@x | b@x | m@x");
}

TEST_F(AddressBookListsTest, AddedAddressesKeepTheirOrder) {
  [lists mergeEntries:@[ @"N<n@x>", @"M<m@x>" ] addresses:@[ @"n@x", @"m@x" ]];
  EXPECT_EQ(entries(), "bob<b@x> | M<m@x> | N<n@x> | Zoe<z@x>");
  EXPECT_EQ(addresses(), "z@x | b@x | n@x | m@x");
}

TEST_F(AddressBookListsTest, SomebodyWhoIsListedByNowIsNotListedTwiceUnderAnotherName) {
  [lists mergeEntries:@[ @"Robert B<b@x>" ] addresses:@[ @"b@x" ]];
  EXPECT_EQ(entries(), "bob<b@x> | Zoe<z@x>");
  EXPECT_EQ(addresses(), "z@x | b@x");
}

TEST_F(AddressBookListsTest, AnotherAddressOfSomebodyWhoIsListedIsAColleaguesToo) {
  [lists mergeEntries:@[ @"Robert B<b@x>" ] addresses:@[ @"bob@x" ]];
  EXPECT_EQ(entries(), "bob<b@x> | Zoe<z@x>");
  EXPECT_EQ(addresses(), "z@x | b@x | bob@x");
}

TEST_F(AddressBookListsTest, TwoAddressesOfOnePersonGiveOneEntry) {
  [lists mergeEntries:@[ @"M<m@x>", @"M<m@x>" ] addresses:@[ @"m@x", @"max@x" ]];
  EXPECT_EQ(entries(), "bob<b@x> | M<m@x> | Zoe<z@x>");
  EXPECT_EQ(addresses(), "z@x | b@x | m@x | max@x");
}

TEST_F(AddressBookListsTest, TheIndexKnowsWhatWasTakenUp) {
  [lists mergeEntries:@[ @"Max M<m@x>" ] addresses:@[ @"m@x" ]];
  EXPECT_TRUE([lists->index updateFromBook:lists->entries]);
  EXPECT_EQ([lists->index count], 3u);
}

TEST_F(AddressBookListsTest, NothingAddedLeavesListsAndIndexAlone) {
  // Retained, so that another one cannot have its address.
  IndexedBook *const index = [[lists->index retain] autorelease];
  [lists mergeEntries:nil addresses:nil];
  EXPECT_EQ(entries(), "bob<b@x> | Zoe<z@x>");
  EXPECT_EQ(lists->index, index);
}

namespace {

/// A rebuild whose empty lists are in place.
struct AddressBookRebuildTest : testing::Test {
  AddressBookRebuild *rebuild = [[[AddressBookRebuild alloc] init] autorelease];
  NSMutableArray *entries = [rebuild emptyLists]->entries;
  NSMutableArray *addresses = [rebuild emptyLists]->addresses;
};

}  // namespace

TEST_F(AddressBookRebuildTest, WithoutAdditionsThereIsNothingToMerge) {
  EXPECT_FALSE([rebuild noteAdditions]);
  [rebuild mergeAdditions];
  EXPECT_EQ([[rebuild lists]->entries count], 0u);
}

TEST_F(AddressBookRebuildTest, AnAddressAloneIsAnAdditionToo) {
  [addresses addObject:@"n@x"];
  EXPECT_TRUE([rebuild noteAdditions]);
  [rebuild mergeAdditions];
  EXPECT_TRUE([[rebuild lists]->addresses isEqual:@[ @"n@x" ]]);
}

TEST_F(AddressBookRebuildTest, WhatWasNotedOnceIsNoAdditionAgain) {
  [entries addObject:@"New<n@x>"];
  [addresses addObject:@"n@x"];
  EXPECT_TRUE([rebuild noteAdditions]);
  EXPECT_FALSE([rebuild noteAdditions]);
}

TEST_F(AddressBookRebuildTest, AListThatHasBecomeShorterHasNoAdditions) {
  [entries addObject:@"New<n@x>"];
  EXPECT_TRUE([rebuild noteAdditions]);
  [entries removeAllObjects];
  EXPECT_FALSE([rebuild noteAdditions]);
}

TEST_F(AddressBookRebuildTest, OnlyItsOwnListIsTheOneThatItPutInPlace) {
  EXPECT_TRUE([rebuild hasPutInPlace:entries]);
  EXPECT_FALSE([rebuild hasPutInPlace:[NSMutableArray array]]);
  EXPECT_FALSE([rebuild hasPutInPlace:nil]);
}
