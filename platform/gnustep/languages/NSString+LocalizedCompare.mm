#import "platform/gnustep/languages/Collator.h"

// The platform opens and closes a collator for each comparison, which takes most of the time of
// sorting an address book.
//
// Replacing the platform's own method is the point.
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"
@implementation NSString (LocalizedCompare)

- (NSComparisonResult)localizedCaseInsensitiveCompare:(NSString *)string {
  UCollator *const collator = string == nil ? nullptr : platform::collatorForCurrentLocale();
  if (collator == nullptr) {
    return [self compare:string
                 options:NSCaseInsensitiveSearch
                   range:NSMakeRange(0, [self length])
                  locale:[NSLocale currentLocale]];
  }
  const platform::StringUnits own(self);
  const platform::StringUnits other(string);
  switch (ucol_strcoll(collator, own.data(), own.length(), other.data(), other.length())) {
    case UCOL_LESS:
      return NSOrderedAscending;
    case UCOL_GREATER:
      return NSOrderedDescending;
    default:
      return NSOrderedSame;
  }
}

@end
