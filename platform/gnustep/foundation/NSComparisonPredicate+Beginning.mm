#import <Foundation/Foundation.h>

#import "platform/gnustep/runtime/MethodReplacement.h"

/// BEGINSWITH as on the Mac. The platform raises an exception when the string is shorter than the
/// prefix, and finds "É" different from "é", or even from "É", depending on how the strings are
/// stored.
@interface NSComparisonPredicate (Beginning)
@end

namespace {

constinit platform::ReplacedMethod<BOOL(id)> platformEvaluate;

NSStringCompareOptions compareOptions(NSUInteger predicateOptions) {
  NSStringCompareOptions options = NSAnchoredSearch;
  if ((predicateOptions & NSDiacriticInsensitivePredicateOption) == 0) options |= NSLiteralSearch;
  if ((predicateOptions & NSCaseInsensitivePredicateOption) != 0) {
    options |= NSCaseInsensitiveSearch;
  }
  return options;
}

}  // namespace

@implementation NSComparisonPredicate (Beginning)

+ (void)load {
  platformEvaluate.install(self, @selector(evaluateWithObject:),
                           @selector(evaluateBeginningWithObject:));
}

- (BOOL)evaluateBeginningWithObject:(id)object {
  if ([self predicateOperatorType] == NSBeginsWithPredicateOperatorType &&
      [self comparisonPredicateModifier] == NSDirectPredicateModifier) {
    id const string = [[self leftExpression] expressionValueWithObject:object context:nil];
    id const beginning = [[self rightExpression] expressionValueWithObject:object context:nil];
    if ([string isKindOfClass:[NSString class]] && [beginning isKindOfClass:[NSString class]]) {
      return [string rangeOfString:beginning options:compareOptions([self options])].location == 0;
    }
  }
  return platformEvaluate(self, _cmd, object);
}

@end
