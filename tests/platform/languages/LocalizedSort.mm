#include <gtest/gtest.h>

#import <Foundation/Foundation.h>

#include <random>

#include "tests/support/Strings.h"

/// A string that counts how often any of its kind is read.
@interface CountingString : NSString {
 @private
  NSString *content;
}
- (id)initWithContent:(NSString *)given;
@end

/// No string, but compared like one.
@interface ComparedObject : NSObject {
 @public
  int number;
}
@end

namespace {

int readings = 0;

NSArray *strings(NSUInteger count) {
  static const unichar characters[] = {'a',  'A',   'b',  'z', ' ',   0xE9,
                                       0xC9, 0x131, 0xDF, '1', 0x5C71};
  std::mt19937 random(2011);
  NSMutableArray *const all = [NSMutableArray array];
  for (NSUInteger i = 0; i < count; ++i) {
    unichar units[6];
    for (unichar &unit : units) unit = characters[random() % std::size(characters)];
    [all addObject:[NSString stringWithCharacters:units length:random() % std::size(units)]];
  }
  return all;
}

NSArray *sorted(NSArray *given) {
  NSMutableArray *const array = [[given mutableCopy] autorelease];
  [array sortUsingSelector:@selector(localizedCaseInsensitiveCompare:)];
  return array;
}

void expectAscending(NSArray *array) {
  for (NSUInteger i = 1; i < [array count]; ++i) {
    NSString *const left = [array objectAtIndex:i - 1];
    EXPECT_NE([left localizedCaseInsensitiveCompare:[array objectAtIndex:i]], NSOrderedDescending)
        << text(left) << " | " << text([array objectAtIndex:i]);
  }
}

}  // namespace

@implementation CountingString

- (id)initWithContent:(NSString *)given {
  if ((self = [super init])) content = [given copy];
  return self;
}

- (void)dealloc {
  [content release];
  [super dealloc];
}

- (NSUInteger)length {
  return [content length];
}

- (unichar)characterAtIndex:(NSUInteger)index {
  return [content characterAtIndex:index];
}

- (void)getCharacters:(unichar *)buffer range:(NSRange)range {
  ++readings;
  [content getCharacters:buffer range:range];
}

@end

@implementation ComparedObject

- (NSComparisonResult)localizedCaseInsensitiveCompare:(ComparedObject *)other {
  if (number == other->number) return NSOrderedSame;
  return number < other->number ? NSOrderedAscending : NSOrderedDescending;
}

@end

TEST(LocalizedSort, HasTheOrderOfTheComparison) {
  NSArray *const given = strings(2000);
  NSArray *const result = sorted(given);
  expectAscending(result);
  EXPECT_TRUE([[NSCountedSet setWithArray:result] isEqual:[NSCountedSet setWithArray:given]]);
}

TEST(LocalizedSort, OfAFewStringsHasTheSameOrder) {
  expectAscending(sorted(strings(7)));
}

TEST(LocalizedSort, ReadsEachStringOnce) {
  NSMutableArray *const counting = [NSMutableArray array];
  for (NSString *string in strings(1000)) {
    [counting addObject:[[[CountingString alloc] initWithContent:string] autorelease]];
  }
  readings = 0;
  NSArray *const result = sorted(counting);
  EXPECT_EQ(readings, 1000);
  expectAscending(result);
}

TEST(LocalizedSort, OfLongStringsLooksAtTheirEnds) {
  NSString *const begin = [@"a" stringByPaddingToLength:5000 withString:@"é" startingAtIndex:0];
  NSMutableArray *const given = [NSMutableArray arrayWithArray:strings(100)];
  [given addObject:[begin stringByAppendingString:@"z"]];
  [given addObject:[begin stringByAppendingString:@"b"]];
  expectAscending(sorted(given));
}

TEST(LocalizedSort, LeavesEqualStringsInTheirOrder) {
  NSMutableArray *const given = [NSMutableArray arrayWithArray:strings(100)];
  [given addObjectsFromArray:@[ @"rené", @"RENÉ", @"René" ]];
  NSArray *const result = sorted(given);
  const NSUInteger first = [result indexOfObjectIdenticalTo:[given objectAtIndex:100]];
  EXPECT_EQ([result objectAtIndex:first + 1], [given objectAtIndex:101]);
  EXPECT_EQ([result objectAtIndex:first + 2], [given objectAtIndex:102]);
}

TEST(LocalizedSort, OfOtherObjectsAsksThemselves) {
  NSMutableArray *const given = [NSMutableArray array];
  for (int i = 0; i < 100; ++i) {
    ComparedObject *const object = [[[ComparedObject alloc] init] autorelease];
    object->number = i * 37 % 100;
    [given addObject:object];
  }
  NSArray *const result = sorted(given);
  for (int i = 0; i < 100; ++i) {
    EXPECT_EQ(static_cast<ComparedObject *>([result objectAtIndex:i])->number, i);
  }
}
