#import "platform/gnustep/languages/Collator.h"

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

}  // namespace

namespace platform {

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

}  // namespace platform
