#import <Foundation/Foundation.h>

#include <unicode/ucol.h>

#include <memory>
#include <string>

namespace {

struct CloseCollator {
  void operator()(UCollator *collator) const { ucol_close(collator); }
};

/// The collator's name for the user's locale. For the plain C locale, in which the platform sorts
/// by code points, it is the root collation: the Mac has no such locale, and "Zoe" must not come
/// before "anna" in an address book.
std::string collatorName() {
  const char *const identifier = [[[NSLocale currentLocale] localeIdentifier] UTF8String];
  const std::string name = identifier != nullptr ? identifier : "";
  return name == "en_US_POSIX" || name == "C" || name == "POSIX" ? "" : name;
}

/// Cached for the thread as long as the user's locale stays the same.
UCollator *collatorForCurrentLocale() {
  thread_local std::unique_ptr<UCollator, CloseCollator> collator;
  thread_local std::string collatorLocale;
  const std::string name = collatorName();
  if (collator == nullptr || collatorLocale != name) {
    UErrorCode status = U_ZERO_ERROR;
    collator.reset(ucol_open(name.c_str(), &status));
    collatorLocale = name;
    if (U_FAILURE(status)) collator.reset();
    // Letter case does not count, accents do, as on the Mac. (The platform's own comparison takes
    // "Resume" and "Résumé" for the same.)
    if (collator != nullptr) ucol_setStrength(collator.get(), UCOL_SECONDARY);
  }
  return collator.get();
}

/// The UTF-16 units of a string, on the stack for a short one as names and addresses are.
class Units {
 public:
  explicit Units(NSString *string) : length_([string length]) {
    if (length_ > kOnStack) heap_.reset(new unichar[length_]);
    [string getCharacters:begin() range:NSMakeRange(0, length_)];
  }
  const UChar *data() const {
    return reinterpret_cast<const UChar *>(heap_ ? heap_.get() : stack_);
  }
  int32_t length() const { return static_cast<int32_t>(length_); }

 private:
  static constexpr NSUInteger kOnStack = 128;
  unichar *begin() { return heap_ ? heap_.get() : stack_; }

  NSUInteger length_;
  unichar stack_[kOnStack];
  std::unique_ptr<unichar[]> heap_;
};

}  // namespace

// The platform opens and closes a collator for each comparison, which takes most of the time of
// sorting an address book.
//
// Replacing the platform's own method is the point.
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"
@implementation NSString (LocalizedCompare)

- (NSComparisonResult)localizedCaseInsensitiveCompare:(NSString *)string {
  UCollator *const collator = string == nil ? nullptr : collatorForCurrentLocale();
  if (collator == nullptr) {
    return [self compare:string
                 options:NSCaseInsensitiveSearch
                   range:NSMakeRange(0, [self length])
                  locale:[NSLocale currentLocale]];
  }
  const Units own(self);
  const Units other(string);
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
