#pragma once

#import <Foundation/Foundation.h>

#include <unicode/ucol.h>

#include <memory>

namespace platform {

/// Compares without regard to letter case and with regard to accents, in the user's language. This
/// thread's own, cached as long as the user's locale stays the same; nullptr where there is none
/// for that locale.
UCollator *collatorForCurrentLocale();

/// The UTF-16 units of a string, on the stack for a short one as names and addresses are.
class StringUnits {
 public:
  explicit StringUnits(NSString *string) : length_([string length]) {
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

}  // namespace platform
