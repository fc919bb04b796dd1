#include "text/TextConversion.h"

#include <string>

#include "tests/fuzz/Input.h"
#include "tests/fuzz/Target.h"
#include "text/UTF16.h"

namespace {

/// The decoded text, "" with `isEscaped` false where a character is not escaped as it should be.
std::string unescaped(const std::string &text, bool &isEscaped) {
  const std::string plain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~";
  const std::string digits = "0123456789ABCDEF";
  std::string bytes;
  isEscaped = true;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (plain.find(text[i]) != plain.npos) {
      bytes.push_back(text[i]);
      continue;
    }
    const bool isWhole = text[i] == '%' && i + 2 < text.size();
    const auto high = isWhole ? digits.find(text[i + 1]) : digits.npos;
    const auto low = isWhole ? digits.find(text[i + 2]) : digits.npos;
    isEscaped = high != digits.npos && low != digits.npos;
    if (!isEscaped) return "";
    const auto byte = static_cast<char>(high * 16 + low);
    if (plain.find(byte) != plain.npos) isEscaped = false;
    bytes.push_back(byte);
    i += 2;
  }
  return bytes;
}

void checkCut(NSString *text, NSUInteger units) {
  NSString *const cut = firstUnits(text, units);
  const std::u16string all = utf16::unitsOf(text);
  const std::u16string kept = utf16::unitsOf(cut);
  fuzz::promise(all.starts_with(kept), "what is kept is the beginning");
  fuzz::promise(kept.size() <= units, "no more is kept than asked for");
  fuzz::promise(kept.size() == all.size() || kept.size() + 1 >= units, "no less is kept");
  const bool isTorn = !kept.empty() && kept.size() < all.size() &&
                      utf16::isHighSurrogate(kept.back()) &&
                      utf16::isLowSurrogate(all[kept.size()]);
  fuzz::promise(!isTorn, "no pair is torn");
}

}  // namespace

/// input: the text.
void fuzz::MailText(std::string_view input) {
  NSString *const text = stringFrom(input);
  for (NSUInteger units = 0; units <= [text length] + 1; ++units) checkCut(text, units);

  NSString *const escaped = percentEscaped(text);
  promise(escaped != nil, "every text can be escaped");
  bool isEscaped = false;
  const std::string bytes = unescaped([escaped UTF8String], isEscaped);
  promise(isEscaped, "all is escaped that must be, and nothing else");
  NSData *const utf8 = [wellFormedStringFrom(input) dataUsingEncoding:NSUTF8StringEncoding];
  promise([utf8 isEqual:[NSData dataWithBytes:bytes.data() length:bytes.size()]],
          "the escapes stand for the text");
}
