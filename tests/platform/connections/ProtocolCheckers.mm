#import <Foundation/Foundation.h>

#include <gtest/gtest.h>

#include "tests/support/Strings.h"

@protocol Counting
- (int)first;
@end

@protocol CountingOn <Counting>
- (int)countOn:(int)steps;
@end

@interface CheckedObject : NSObject <CountingOn>
@end

@implementation CheckedObject

- (int)first {
  return 1;
}

- (int)countOn:(int)steps {
  return 1 + steps;
}

- (int)secret {
  return 3;
}

@end

namespace {

struct ProtocolCheckers : testing::Test {
  CheckedObject *const object = [[[CheckedObject alloc] init] autorelease];
  id const checker = [[[NSProtocolChecker alloc] initWithTarget:object
                                                       protocol:@protocol(CountingOn)] autorelease];
};

}  // namespace

TEST_F(ProtocolCheckers, PassOnWhatTheProtocolDeclaresAndAdopts) {
  EXPECT_EQ([checker first], 1);
  EXPECT_EQ([checker countOn:2], 3);
}

TEST_F(ProtocolCheckers, RespondToWhatTheProtocolDeclaresAndAdopts) {
  EXPECT_TRUE([checker respondsToSelector:@selector(first)]);
  EXPECT_TRUE([checker respondsToSelector:@selector(countOn:)]);
  EXPECT_FALSE([checker respondsToSelector:@selector(secret)]);
  EXPECT_FALSE([checker respondsToSelector:@selector(valueForKey:)]);
}

TEST_F(ProtocolCheckers, ConformToTheProtocolAndWhatItAdopts) {
  EXPECT_TRUE([checker conformsToProtocol:@protocol(CountingOn)]);
  EXPECT_TRUE([checker conformsToProtocol:@protocol(Counting)]);
  EXPECT_FALSE([checker conformsToProtocol:NSProtocolFromString(@"NSCopying")]);
}

TEST_F(ProtocolCheckers, HaveSignaturesForTheProtocolAndForTheQueriesOfAProxy) {
  for (const SEL selector : {
         @selector(first), @selector(countOn:), @selector(methodSignatureForSelector:),
             @selector(respondsToSelector:), @selector(conformsToProtocol:)
       }) {
    EXPECT_NE([checker methodSignatureForSelector:selector], nil) << sel_getName(selector);
  }
  for (const SEL selector : {
         @selector(secret), @selector(valueForKey:), @selector(release), @selector(performSelector:)
       }) {
    EXPECT_EQ([checker methodSignatureForSelector:selector], nil) << sel_getName(selector);
  }
}

TEST_F(ProtocolCheckers, RefuseEverythingElse) {
  NSString *name = nil;
  @try {
    [checker secret];
  } @catch (NSException *exception) {
    name = [exception name];
  }
  EXPECT_EQ(text(name), text(NSInvalidArgumentException));
}
