#pragma once

#import <Foundation/Foundation.h>

#include <cstdint>
#include <vector>

@class IndexedBook;

/// Some of the entries of an address book, as an array. Holds their numbers only: an answer with
/// 100,000 entries, of which a completion list shows ten, costs neither a reference nor a copy of
/// each. Immutable; keeps the book alive.
@interface MatchedEntries : NSArray {
 @private
  IndexedBook *source;
  std::vector<std::uint32_t> *matches;
}

/// numbers: of entries that the book has.
- (id)initWithBook:(IndexedBook *)book numbers:(std::vector<std::uint32_t>)numbers;

@end
