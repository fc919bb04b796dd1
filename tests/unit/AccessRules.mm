#import "windows/share/AccessLevel.h"

#include <gtest/gtest.h>

#include "tests/support/Strings.h"
#import "windows/share/SharedWith.h"

namespace {

/// Flags in the order: may download, may upload, may delete, is the owner.
agent::AccessEntry entry(BOOL download, BOOL upload, BOOL remove, BOOL owner,
                         NSString *type = @"user") {
  return {.type = type,
          .canDownload = download,
          .canUpload = upload,
          .canDelete = remove,
          .isOwner = owner,
          .firstName = @"anna maria",
          .lastName = @"lee",
          .address = @"A.Lee@x.org"};
}

}  // namespace

TEST(AccessRules, APersonWithAllThreeRightsReadsAndWrites) {
  EXPECT_EQ(listedLevel(entry(YES, YES, YES, NO)), AccessLevel::ReadWrite);
}

TEST(AccessRules, APersonWithoutOneOfTheWritingRightsOnlyReads) {
  EXPECT_EQ(listedLevel(entry(YES, YES, NO, NO)), AccessLevel::ReadOnly);
  EXPECT_EQ(listedLevel(entry(YES, NO, YES, NO)), AccessLevel::ReadOnly);
  EXPECT_EQ(listedLevel(entry(YES, NO, NO, NO)), AccessLevel::ReadOnly);
}

TEST(AccessRules, TheOwnerIsNotListed) {
  EXPECT_EQ(listedLevel(entry(YES, YES, YES, YES)), std::nullopt);
  EXPECT_EQ(listedLevel(entry(YES, NO, NO, YES)), std::nullopt);
}

TEST(AccessRules, WhoMayNotDownloadIsNotListed) {
  EXPECT_EQ(listedLevel(entry(NO, YES, YES, NO)), std::nullopt);
  EXPECT_EQ(listedLevel(entry(NO, NO, NO, NO)), std::nullopt);
}

TEST(AccessRules, OnlyTheExactTypeOfPeopleIsListed) {
  for (NSString *type in @[ @"group", @"User", @"user ", @"" ]) {
    EXPECT_EQ(listedLevel(entry(YES, YES, YES, NO, type)), std::nullopt) << text(type);
  }
  EXPECT_EQ(listedLevel(entry(YES, YES, YES, NO, nil)), std::nullopt);
}

TEST(AccessRules, AnEntryThatIsNotListedHasNoRow) {
  EXPECT_EQ(rowFor(entry(NO, YES, YES, NO)), nil);
  EXPECT_EQ(rowFor({}), nil);
}

TEST(AccessRules, ARowHasThePersonsNameAndAddress) {
  SharedWith *const row = rowFor(entry(YES, NO, NO, NO));
  EXPECT_EQ(text([row personName]), "Anna Maria Lee");
  EXPECT_EQ(text([row useremail]), "A.Lee@x.org");
  EXPECT_TRUE([row isNotOwner]);
}

TEST(AccessRules, ARowWithoutAFirstNameHasTheAddressAsItIs) {
  agent::AccessEntry nameless = entry(YES, NO, NO, NO);
  for (NSString *const first : {static_cast<NSString *>(nil), static_cast<NSString *>(@"")}) {
    nameless.firstName = first;
    EXPECT_EQ(text([rowFor(nameless) personName]), "A.Lee@x.org");
  }
}

TEST(AccessRules, ARowsLevelIsANumber) {
  EXPECT_EQ([rowFor(entry(YES, YES, YES, NO)) accessPermission], 1);
  EXPECT_EQ([rowFor(entry(YES, YES, NO, NO)) accessPermission], 0);
}

TEST(AccessRules, ANewRowIsEmpty) {
  SharedWith *const row = [[[SharedWith alloc] init] autorelease];
  EXPECT_EQ([row personName], nil);
  EXPECT_EQ([row permission], nil);
  EXPECT_EQ([row useremail], nil);
  EXPECT_FALSE([row isNotOwner]);
  EXPECT_EQ([row accessPermission], 0);
}
