#import "agent/ResultDictionary.h"

#include <gtest/gtest.h>

#include "tests/support/Strings.h"

using agent::ReplyKind;

/// An object of another process that says that it is of any class.
@interface AnyClassProxy : NSProxy
@end

@implementation AnyClassProxy

+ (id)proxy {
  return [[self alloc] autorelease];
}

- (BOOL)isKindOfClass:(Class)cls {
  (void)cls;
  return YES;
}

@end

namespace {

NSDictionary *withError(id error) {
  return @{@"error" : error, @"value" : @"v"};
}

}  // namespace

TEST(ResultDictionary, NoReplyIsUnreachable) {
  EXPECT_EQ(agent::kindOfLinkReply(nil), ReplyKind::Unreachable);
  EXPECT_EQ(agent::kindOfActionReply(nil), ReplyKind::Unreachable);
}

TEST(ResultDictionary, AReplyWithoutEntriesIsUnreachable) {
  EXPECT_EQ(agent::kindOfLinkReply(@{}), ReplyKind::Unreachable);
  EXPECT_EQ(agent::kindOfActionReply(@{}), ReplyKind::Unreachable);
}

TEST(ResultDictionary, TheNumberZeroIsSuccessForLinksAndForActions) {
  EXPECT_EQ(agent::kindOfLinkReply(withError(@0)), ReplyKind::Succeeded);
  EXPECT_EQ(agent::kindOfActionReply(withError(@0)), ReplyKind::Succeeded);
}

TEST(ResultDictionary, AnyOtherNumberIsARefusal) {
  for (NSNumber *error in @[ @1, @-1, @404, [NSNumber numberWithBool:YES] ]) {
    EXPECT_EQ(agent::kindOfLinkReply(withError(error)), ReplyKind::Refused) << text(error);
    EXPECT_EQ(agent::kindOfActionReply(withError(error)), ReplyKind::Refused) << text(error);
  }
}

TEST(ResultDictionary, AnErrorWrittenAsTextIsReadByItsText) {
  EXPECT_EQ(agent::kindOfLinkReply(withError(@"0")), ReplyKind::Succeeded);
  EXPECT_EQ(agent::kindOfActionReply(withError(@"0")), ReplyKind::Succeeded);
  EXPECT_EQ(agent::kindOfLinkReply(withError(@"5")), ReplyKind::Refused);
  EXPECT_EQ(agent::kindOfActionReply(withError(@"5")), ReplyKind::Refused);
}

TEST(ResultDictionary, AMissingErrorRefusesALinkAndPassesAnAction) {
  NSDictionary *const reply = @{@"value" : @"v"};
  EXPECT_EQ(agent::kindOfLinkReply(reply), ReplyKind::Refused);
  EXPECT_EQ(agent::kindOfActionReply(reply), ReplyKind::Succeeded);
}

TEST(ResultDictionary, AnErrorOfAnotherClassCountsAsMissing) {
  for (id error in @[ [NSNull null], @[ @0 ], @{@"0" : @0}, [NSData data] ]) {
    EXPECT_EQ(agent::kindOfLinkReply(withError(error)), ReplyKind::Refused) << text(error);
    EXPECT_EQ(agent::kindOfActionReply(withError(error)), ReplyKind::Succeeded) << text(error);
    EXPECT_EQ(text(agent::errorText(withError(error))), "(nil)");
  }
}

TEST(ResultDictionary, TheMessageIsOnlyEverAString) {
  EXPECT_EQ(text(agent::errorMessage(@{@"errorMessage" : @"quota"})), "quota");
  EXPECT_EQ(text(agent::errorMessage(@{@"errorMessage" : @7})), "(nil)");
  EXPECT_EQ(text(agent::errorMessage(@{@"errorMessage" : [NSNull null]})), "(nil)");
  EXPECT_EQ(text(agent::errorMessage(nil)), "(nil)");
}

TEST(ResultDictionary, AProxyThatClaimsToBeAStringOrANumberIsNeither) {
  id const claimant = [AnyClassProxy proxy];
  EXPECT_TRUE(agent::stringOrNil(claimant) == nil);
  EXPECT_FALSE(agent::flagOf(claimant));
  EXPECT_TRUE(agent::errorText(@{@"error" : claimant}) == nil);
}

TEST(ResultDictionary, WhatIsNoDictionaryIsNoReply) {
  EXPECT_EQ(text(agent::localCopyOfReply(nil)), "(nil)");
  EXPECT_EQ(text(agent::localCopyOfReply(@"a string")), "(nil)");
  EXPECT_EQ(text(agent::localCopyOfReply(@[ @"error" ])), "(nil)");
  EXPECT_EQ([agent::localCopyOfDictionary(@"a string") count], 0u);
}

TEST(ResultDictionary, ACopyKeepsTheThreeKeys) {
  NSDictionary *const reply = @{@"error" : @0, @"value" : @"v", @"errorMessage" : @"m"};
  EXPECT_TRUE([agent::localCopyOfReply(reply) isEqual:reply]);
}

TEST(ResultDictionary, ACopyOfAReplyWithoutTheThreeKeysIsNotEmpty) {
  EXPECT_TRUE([agent::localCopyOfReply(@{@"other" : @1}) isEqual:@{@"other" : @1}]);
  EXPECT_TRUE([agent::localCopyOfReply(@{}) isEqual:@{}]);
}

TEST(ResultDictionary, ACopyOfTextsHasThoseOfTheKeysThatThereAre) {
  NSDictionary *const person =
      @{@"first" : @"Zoë \U0001F600", @"last" : @"", @"other" : @"left out"};
  EXPECT_TRUE([agent::localCopyOfTexts(@[ @"first", @"middle", @"last" ], person)
      isEqual:(@{@"first" : @"Zoë \U0001F600", @"last" : @""})]);
}

TEST(ResultDictionary, ACopyOfTextsOfWhatIsNoDictionaryIsNil) {
  for (id other in @[ @"text", @42, @[ @"first" ] ]) {
    EXPECT_EQ(agent::localCopyOfTexts(@[ @"first" ], other), nil) << text(other);
  }
  EXPECT_EQ(agent::localCopyOfTexts(@[ @"first" ], nil), nil);
}

TEST(ResultDictionary, ATextThatCannotBeToldFromTwoIsNoCopy) {
  EXPECT_EQ(agent::localCopyOfTexts(@[ @"first" ], @{
              @"first" : @"a\x1F"
                         @"b"
            }),
            nil);
}
