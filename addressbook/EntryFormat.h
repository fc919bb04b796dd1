#pragma once

#import <Foundation/Foundation.h>

#include <array>
#include <string>
#include <string_view>
#include <vector>

/// A format for up to three strings, read once and filled in many times: what stringWithFormat:
/// makes of it, in a sixth of its time (an address book fills it in once for each contact).
///
/// Knows "%@", "%1$@" to "%3$@" and "%%". A format with anything else is left to stringWithFormat:.
class EntryFormat {
 public:
  /// format: as a localized text has it; nil is the empty format.
  explicit EntryFormat(NSString *format);
  ~EntryFormat();
  EntryFormat(const EntryFormat &) = delete;
  EntryFormat &operator=(const EntryFormat &) = delete;

  /// Whether fill can do it by itself; otherwise it asks the platform.
  bool isSimple() const { return isSimple_; }

  /// The format filled in. Missing arguments are empty strings. Autoreleased; any thread.
  NSString *fill(const std::array<std::u16string_view, 3> &arguments) const;

 private:
  /// Text, followed by an argument (its index, or kNone).
  struct Piece {
    std::u16string text;
    size_t argument;
  };
  static constexpr size_t kNone = 3;

  bool read(std::u16string_view format);

  NSString *format_;  // owned
  std::vector<Piece> pieces_;
  bool isSimple_;
};
