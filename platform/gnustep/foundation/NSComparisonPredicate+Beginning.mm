#import <Foundation/Foundation.h>

#import "platform/gnustep/runtime/OwnMethod.h"

/// BEGINSWITH as on the Mac. The platform raises an exception when the string is shorter than what
/// it should begin with, and takes "É" and "é" for different letters, or "É" for different from
/// itself, depending on how each of the strings happens to be stored.
@interface NSComparisonPredicate (Beginning)
@end

namespace {

NSStringCompareOptions compareOptions(NSUInteger predicateOptions) {
  NSStringCompareOptions options = NSAnchoredSearch;
  if ((predicateOptions & NSDiacriticInsensitivePredicateOption) == 0) options |= NSLiteralSearch;
  if ((predicateOptions & NSCaseInsensitivePredicateOption) != 0) {
    options |= NSCaseInsensitiveSearch;
  }
  return options;
}

}  // namespace

// Replacing the platform's own method is the point.
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"
@implementation NSComparisonPredicate (Beginning)

- (BOOL)evaluateWithObject:(id)object {
  if ([self predicateOperatorType] == NSBeginsWithPredicateOperatorType &&
      [self comparisonPredicateModifier] == NSDirectPredicateModifier) {
    id const string = [[self leftExpression] expressionValueWithObject:object context:nil];
    id const beginning = [[self rightExpression] expressionValueWithObject:object context:nil];
    if ([string isKindOfClass:[NSString class]] && [beginning isKindOfClass:[NSString class]]) {
      return [string rangeOfString:beginning options:compareOptions([self options])].location == 0;
    }
  }
  using Evaluate = BOOL (*)(id, SEL, id);
  static const Evaluate platforms =
      ownMethod<Evaluate>([NSComparisonPredicate class], @selector(evaluateWithObject:));
  return platforms(self, _cmd, object);
}

@end
