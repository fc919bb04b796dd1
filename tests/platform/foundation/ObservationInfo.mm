#include <gtest/gtest.h>

#import <Foundation/Foundation.h>

@interface Observed : NSObject {
 @public
  NSObject *observer;
 @private
  NSString *name;
}
@property (nonatomic, copy) NSString *name;
@end

@implementation Observed
@synthesize name;

- (void)dealloc {
  if (observer != nil) [self removeObserver:observer forKeyPath:@"name"];
  [name release];
  [super dealloc];
}

@end

namespace {

/// Deallocates an object that is observed by `observer`, and answers the number of references to
/// its observation info.
NSUInteger holdersOfTheRecordAfter(Observed *observed, NSObject *observer) {
  id record = nil;
  @autoreleasepool {
    [observed addObserver:observer forKeyPath:@"name" options:0 context:nullptr];
    record = [static_cast<id>([observed observationInfo]) retain];
    EXPECT_NE(record, nil);
    [observed release];
  }
  const NSUInteger holders = [record retainCount] - 1;
  [record release];
  return holders;
}

}  // namespace

TEST(Observed, TheRecordOfObserversEndsWithAnObjectThatIsStillObserved) {
  NSObject *const observer = [[NSObject alloc] init];
  EXPECT_EQ(holdersOfTheRecordAfter([[Observed alloc] init], observer), 0u);
  [observer release];
}

TEST(Observed, TheRecordOfObserversEndsWithAnObjectThatRemovesTheLastOneAtItsEnd) {
  NSObject *const observer = [[NSObject alloc] init];
  Observed *const observed = [[Observed alloc] init];
  observed->observer = observer;
  EXPECT_EQ(holdersOfTheRecordAfter(observed, observer), 0u);
  [observer release];
}

TEST(Observed, AnObjectThatIsNoLongerObservedEnds) {
  NSObject *const observer = [[NSObject alloc] init];
  Observed *const observed = [[Observed alloc] init];
  @autoreleasepool {
    [observed addObserver:observer forKeyPath:@"name" options:0 context:nullptr];
    [observed removeObserver:observer forKeyPath:@"name"];
  }
  EXPECT_EQ([observed observationInfo], nullptr);
  [observed release];
  [observer release];
}
