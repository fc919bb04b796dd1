#import "platform/gnustep/runtime/MethodReplacement.h"

#include <gtest/gtest.h>

#import <Foundation/Foundation.h>

#include <string>

@interface Counter : NSObject
- (int)sumOf:(int)first and:(int)second;
+ (int)start;
@end

@implementation Counter

- (int)sumOf:(int)first and:(int)second {
  return first + second;
}

+ (int)start {
  return 1;
}

@end

@interface Counter (Doubling)
- (int)doubledSumOf:(int)first and:(int)second;
@end

namespace {

constinit platform::ReplacedMethod<int(int, int)> counterSum;

}  // namespace

@implementation Counter (Doubling)

- (int)doubledSumOf:(int)first and:(int)second {
  return 2 * counterSum(self, _cmd, first, second);
}

@end

namespace {

using IntMethod = int (*)(id, SEL);

int one(id, SEL) {
  return 1;
}

int two(id, SEL) {
  return 2;
}

int three(id, SEL) {
  return 3;
}

void addMethod(Class cls, SEL selector, IntMethod implementation) {
  class_addMethod(cls, selector, reinterpret_cast<IMP>(implementation), "i@:");
}

IMP replace(Class cls, SEL selector, IntMethod implementation) {
  return platform::replaceMethod(cls, selector, reinterpret_cast<IMP>(implementation));
}

/// What an instance answers, found through the runtime's cache.
int answerOf(Class cls, SEL selector) {
  id const object = [[cls alloc] init];
  const IMP implementation = [object methodForSelector:selector];
  const int answer = reinterpret_cast<IntMethod>(implementation)(object, selector);
  [object release];
  return answer;
}

/// A class with three methods that answer 1, and a subclass that overrides the first and the last:
/// selectors are numbered in the order in which they are registered, and the runtime's cache copies
/// those around an overridden one with it. Both are in use, and of each test's own.
struct ReplacingAMethod : testing::Test {
  std::string suffix = testing::UnitTest::GetInstance()->current_test_info()->name();
  SEL first = sel_registerName(("first" + suffix).c_str());
  SEL middle = sel_registerName(("middle" + suffix).c_str());
  SEL last = sel_registerName(("last" + suffix).c_str());
  Class parent = newClass(
      "Parent", [NSObject class], { first, middle, last }, one);
  Class child = newClass("Child", parent, {first, last}, two);

  ReplacingAMethod() {
    EXPECT_EQ(answerOf(parent, middle), 1);
    EXPECT_EQ(answerOf(child, middle), 1);
  }

  Class newClass(const std::string &name, Class superclass, std::initializer_list<SEL> selectors,
                 IntMethod implementation) const {
    Class const cls = objc_allocateClassPair(superclass, (name + suffix).c_str(), 0);
    for (SEL const selector : selectors) addMethod(cls, selector, implementation);
    objc_registerClassPair(cls);
    return cls;
  }
};

}  // namespace

TEST_F(ReplacingAMethod, ReachesASubclassThatIsInUse) {
  replace(parent, middle, three);
  EXPECT_EQ(answerOf(parent, middle), 3);
  EXPECT_EQ(answerOf(child, middle), 3);
}

TEST_F(ReplacingAMethod, LeavesWhatASubclassOverrides) {
  replace(parent, first, three);
  EXPECT_EQ(answerOf(parent, first), 3);
  EXPECT_EQ(answerOf(child, first), 2);
}

TEST_F(ReplacingAMethod, ThatIsInheritedLeavesTheSuperclassAsItIs) {
  EXPECT_FALSE(platform::hasOwnMethod(child, middle));
  replace(child, middle, three);
  EXPECT_TRUE(platform::hasOwnMethod(child, middle));
  EXPECT_EQ(answerOf(child, middle), 3);
  EXPECT_EQ(answerOf(parent, middle), 1);
}

TEST_F(ReplacingAMethod, ReturnsTheFormerImplementation) {
  EXPECT_EQ(replace(child, first, three), reinterpret_cast<IMP>(two));
  EXPECT_EQ(replace(child, first, one), reinterpret_cast<IMP>(three));
  EXPECT_EQ(replace(child, middle, three), reinterpret_cast<IMP>(one));
}

TEST_F(ReplacingAMethod, ThatDoesNotExistHasNoEffect) {
  SEL const missing = sel_registerName(("missing" + suffix).c_str());
  EXPECT_EQ(replace(parent, missing, three), nullptr);
  EXPECT_FALSE(platform::hasOwnMethod(parent, missing));
  EXPECT_EQ(replace(Nil, first, three), nullptr);
}

TEST_F(ReplacingAMethod, ASecondTimeThroughTheSameObjectHasNoEffect) {
  platform::ReplacedMethod<int()> replaced;
  EXPECT_FALSE(replaced.isInstalled());
  EXPECT_TRUE(replaced.install(parent, middle, two));
  EXPECT_TRUE(replaced.isInstalled());
  EXPECT_FALSE(replaced.install(parent, middle, three));
  EXPECT_EQ(answerOf(parent, middle), 2);
}

TEST_F(ReplacingAMethod, OfTheClassItselfReplacesAClassMethod) {
  platform::ReplacedMethod<int()> start;
  ASSERT_TRUE(start.install(object_getClass([Counter class]), @selector(start), two));
  EXPECT_EQ([Counter start], 2);
  EXPECT_EQ(start([Counter class], @selector(start)), 1);
}

TEST(ReplacedMethod, ByOneOfACategoryCanCallTheFormerOneWithItsArguments) {
  Counter *const counter = [[[Counter alloc] init] autorelease];
  ASSERT_TRUE(
      counterSum.install([Counter class], @selector(sumOf:and:), @selector(doubledSumOf:and:)));
  EXPECT_EQ([counter sumOf:3 and:4], 14);
  EXPECT_EQ(counterSum(counter, @selector(sumOf:and:), 3, 4), 7);
}
