#include "tests/fuzz/Input.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdint>
#include <cstdlib>

namespace fuzz {
namespace {

constexpr char16_t kReplacement = u'\uFFFD';
constexpr char16_t kFirstHigh = 0xD800;
constexpr char16_t kFirstLow = 0xDC00;
constexpr char16_t kAfterSurrogates = 0xE000;

bool isHigh(char16_t unit) {
  return unit >= kFirstHigh && unit < kFirstLow;
}
bool isLow(char16_t unit) {
  return unit >= kFirstLow && unit < kAfterSurrogates;
}

/// The places of the units that are half a pair without its other half.
std::vector<std::size_t> halvesIn(std::u16string_view units) {
  std::vector<std::size_t> places;
  for (std::size_t i = 0; i < units.size(); ++i) {
    if (isHigh(units[i]) && i + 1 < units.size() && isLow(units[i + 1])) {
      ++i;
    } else if (isHigh(units[i]) || isLow(units[i])) {
      places.push_back(i);
    }
  }
  return places;
}

NSString *plainString(std::u16string_view units) {
  return [NSString stringWithCharacters:reinterpret_cast<const unichar *>(units.data())
                                 length:units.size()];
}

/// How many bytes a sequence has that begins with this one, by Unicode's table; 0: none does.
std::size_t lengthAfter(std::uint8_t lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead < 0xE0) return 2;
  if (lead >= 0xE0 && lead < 0xF0) return 3;
  if (lead >= 0xF0 && lead < 0xF5) return 4;
  return 0;
}

/// The character at the beginning of the bytes and how many it takes; 0 bytes when there is none.
std::pair<char32_t, std::size_t> characterAt(std::string_view bytes) {
  constexpr std::array<std::uint8_t, 5> kBitsOfLead = {0, 0x7F, 0x1F, 0x0F, 0x07};
  constexpr std::array<char32_t, 5> kLeast = {0, 0, 0x80, 0x800, 0x10000};
  const auto lead = static_cast<std::uint8_t>(bytes.front());
  const std::size_t length = lengthAfter(lead);
  if (length == 0 || length > bytes.size()) return {0, 0};
  char32_t character = lead & kBitsOfLead[length];
  for (const char byte : bytes.substr(1, length - 1)) {
    if ((static_cast<std::uint8_t>(byte) & 0xC0) != 0x80) return {0, 0};
    character = (character << 6) | (static_cast<std::uint8_t>(byte) & 0x3F);
  }
  const bool isSurrogate = character >= kFirstHigh && character < kAfterSurrogates;
  if (character < kLeast[length] || isSurrogate || character > 0x10FFFF) return {0, 0};
  return {character, length};
}

/// Reads the notation of objectFrom.
class Reader {
 public:
  explicit Reader(std::string_view rest) : rest_(rest) {}

  /// The next object, nil at the end of the input or of what it is in. depth: how many containers
  /// it is in.
  id next(int depth) {
    while (!rest_.empty()) {
      switch (taken()) {
        case '\'':
          return wellFormedStringFrom(takenUntil('\''));
        case '#':
          return number(std::string(takenUntil(';')));
        case '+':
          return [NSNumber numberWithBool:YES];
        case '-':
          return [NSNumber numberWithBool:NO];
        case '!':
          return [NSNull null];
        case '@':
          return [NSDate dateWithTimeIntervalSinceReferenceDate:0];
        case '$':
          return data(takenUntil('$'));
        case '{':
          if (depth < kDeepest) return dictionary(depth + 1);
          break;
        case '[':
          if (depth < kDeepest) return array(depth + 1);
          break;
        case '}':
        case ']':
          if (depth > 0) return nil;
          break;
        default:
          break;
      }
    }
    return nil;
  }

 private:
  static constexpr int kDeepest = 8;
  static constexpr int kMoreAlike = 9;
  static constexpr NSUInteger kLongestArray = 1000;

  char taken() {
    const char first = rest_.front();
    rest_.remove_prefix(1);
    return first;
  }

  std::string_view takenUntil(char end) {
    const std::string_view text = rest_.substr(0, rest_.find(end));
    rest_.remove_prefix(std::min(text.size() + 1, rest_.size()));
    return text;
  }

  static NSNumber *number(const std::string &text) {
    const bool isWhole = text.find_first_not_of("-0123456789") == text.npos;
    return isWhole ? [NSNumber numberWithLongLong:std::strtoll(text.c_str(), nullptr, 10)]
                   : [NSNumber numberWithDouble:std::strtod(text.c_str(), nullptr)];
  }

  static NSData *data(std::string_view bytes) {
    return [NSData dataWithBytes:bytes.data() length:bytes.size()];
  }

  NSDictionary *dictionary(int depth) {
    std::vector<id> keys;
    std::vector<id> values;
    for (id key = next(depth); key != nil; key = next(depth)) {
      id const value = next(depth);
      if (value == nil) break;
      keys.push_back(key);
      values.push_back(value);
    }
    // Never mutable: of a mutable dictionary with a NaN as a key, which does not equal itself, the
    // platform cannot make the copy that is needed where it is a key of another one.
    return [NSDictionary dictionaryWithObjects:values.data() forKeys:keys.data() count:keys.size()];
  }

  NSArray *array(int depth) {
    NSMutableArray *const elements = [NSMutableArray array];
    for (id element = next(depth); element != nil; element = next(depth)) {
      [elements addObject:element];
      while (depth == 1 && rest_.starts_with('*')) {
        taken();
        for (int i = 0; i < kMoreAlike && [elements count] < kLongestArray; ++i) {
          [elements addObject:element];
        }
      }
    }
    return [NSArray arrayWithArray:elements];
  }

  std::string_view rest_;
};

}  // namespace

std::u16string unitsFrom(std::string_view bytes) {
  std::u16string units;
  while (!bytes.empty()) {
    const auto [character, length] = characterAt(bytes);
    if (length == 0) {
      // High surrogates for the lower half of the invalid bytes, low ones for the upper half.
      const auto byte = static_cast<std::uint8_t>(bytes.front());
      units.push_back(
          static_cast<char16_t>((byte < 0xC0 ? kFirstHigh : kFirstLow) + (byte & 0x3F)));
    } else if (character < 0x10000) {
      units.push_back(static_cast<char16_t>(character));
    } else {
      units.push_back(static_cast<char16_t>(kFirstHigh + ((character - 0x10000) >> 10)));
      units.push_back(static_cast<char16_t>(kFirstLow + ((character - 0x10000) & 0x3FF)));
    }
    bytes.remove_prefix(std::max<std::size_t>(length, 1));
  }
  return units;
}

NSString *stringFrom(std::string_view bytes) {
  std::u16string units = unitsFrom(bytes);
  std::vector<std::size_t> halves = halvesIn(units);
  if (halves.empty()) return plainString(units);
  // The platform creates no string of such units, but keeps them in a mutable one: each half is
  // inserted with its other half, which is then deleted. From the end, so that earlier positions
  // stay valid.
  std::reverse(halves.begin(), halves.end());
  std::vector<std::size_t> others;
  for (const std::size_t place : halves) {
    const bool high = isHigh(units[place]);
    const std::size_t other = place + (high ? 1 : 0);
    units.insert(other, 1, high ? kFirstLow : kFirstHigh);
    for (std::size_t &behind : others) ++behind;
    others.push_back(other);
  }
  NSMutableString *const string = [NSMutableString stringWithString:plainString(units)];
  for (const std::size_t other : others) [string deleteCharactersInRange:NSMakeRange(other, 1)];
  return [[string copy] autorelease];
}

NSString *wellFormedStringFrom(std::string_view bytes) {
  std::u16string units = unitsFrom(bytes);
  for (const std::size_t place : halvesIn(units)) units[place] = kReplacement;
  return plainString(units);
}

std::vector<std::string_view> fieldsOf(std::string_view bytes, std::size_t count) {
  std::vector<std::string_view> fields(count);
  for (std::size_t i = 0; i < count; ++i) {
    const bool isLast = i + 1 == count;
    fields[i] = isLast ? bytes : bytes.substr(0, bytes.find('\n'));
    bytes.remove_prefix(std::min(fields[i].size() + 1, bytes.size()));
  }
  return fields;
}

std::vector<std::string_view> linesOf(std::string_view bytes) {
  return fieldsOf(bytes,
                  1 + static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\n')));
}

id objectFrom(std::string_view bytes) {
  return Reader(bytes).next(0);
}

}  // namespace fuzz
