#import "addressbook/IndexedBook.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#import "addressbook/CompletionIndex.h"
#import "addressbook/PlatformCaseFolding.h"

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

@implementation MatchedEntries

- (id)initWithBook:(IndexedBook *)book numbers:(std::vector<std::uint32_t>)numbers {
  if ((self = [super init])) {
    // Given back in dealloc.
    source = [book retain];
    matches = new std::vector<std::uint32_t>(std::move(numbers));
  }
  return self;
}

- (void)dealloc {
  [source release];
  delete matches;
  [super dealloc];
}

- (NSUInteger)count {
  return matches->size();
}

- (id)objectAtIndex:(NSUInteger)index {
  if (index >= matches->size()) {
    [NSException raise:NSRangeException
                format:@"index %lu of an array of %lu", static_cast<unsigned long>(index),
                       static_cast<unsigned long>(matches->size())];
  }
  return [source entryAtIndex:(*matches)[index]];
}

- (id)copyWithZone:(NSZone *)zone {
  (void)zone;
  // The platform's own would copy every string.
  return [self retain];
}

@end

struct IndexedEntries {
  explicit IndexedEntries(const CaseFolding &folding) : index(folding) {}

  std::vector<NSString *> entries;  // retained
  CompletionIndex index;
};

namespace {

/// How many references are read from a book at a time.
constexpr NSUInteger kPortion = 1024;

/// Calls visit with the book's strings from `start` on, a portion at a time, until it returns
/// false.
template <class Visit>
void visitPortions(NSArray *book, NSUInteger start, NSUInteger end, Visit visit) {
  NSString *portion[kPortion];
  while (start < end) {
    const NSUInteger length = std::min(kPortion, end - start);
    [book getObjects:portion range:NSMakeRange(start, length)];
    if (!visit(start, portion, portion + length)) return;
    start += length;
  }
}

/// The units of a string, in a buffer that is reused for the next.
std::u16string_view unitsOf(NSString *string, std::u16string &buffer) {
  const NSUInteger length = [string length];
  if (buffer.size() < length) buffer.resize(length);
  [string getCharacters:reinterpret_cast<unichar *>(buffer.data()) range:NSMakeRange(0, length)];
  return std::u16string_view(buffer).substr(0, length);
}

}  // namespace

@implementation IndexedBook

- (id)initWithBook:(NSArray *)book {
  return [self initWithBook:book folding:platformCaseFolding()];
}

- (id)initWithBook:(NSArray *)book folding:(const CaseFolding &)folding {
  if ((self = [super init])) {
    contents = new IndexedEntries(folding);
    [self makeRoomFor:book];
    [self addFrom:book];
  }
  return self;
}

- (void)dealloc {
  for (NSString *entry : contents->entries) [entry release];
  delete contents;
  [super dealloc];
}

#pragma mark - Updating

- (void)makeRoomFor:(NSArray *)book {
  NSUInteger units = 0;
  visitPortions(book, 0, [book count], [&](NSUInteger, NSString **begin, NSString **end) {
    for (NSString **entry = begin; entry < end; ++entry) units += [*entry length];
    return true;
  });
  contents->entries.reserve([book count]);
  contents->index.reserve([book count], units);
}

/// Adds everything in the book after what is indexed.
- (void)addFrom:(NSArray *)book {
  std::u16string buffer;
  visitPortions(book, [self count], [book count],
                [&](NSUInteger, NSString **begin, NSString **end) {
                  for (NSString **entry = begin; entry < end; ++entry) {
                    contents->entries.push_back([*entry retain]);
                    contents->index.add(unitsOf(*entry, buffer));
                  }
                  return true;
                });
}

- (BOOL)isBeginningOf:(NSArray *)book {
  bool isSame = [self count] <= [book count];
  if (!isSame) return NO;
  const std::vector<NSString *> &entries = contents->entries;
  visitPortions(book, 0, [self count], [&](NSUInteger start, NSString **begin, NSString **end) {
    isSame = std::equal(begin, end, entries.begin() + static_cast<std::ptrdiff_t>(start));
    return isSame;
  });
  return isSame;
}

- (BOOL)updateFromBook:(NSArray *)book {
  if (![self isBeginningOf:book]) return NO;
  [self addFrom:book];
  return YES;
}

- (NSUInteger)count {
  return contents->entries.size();
}

- (NSString *)entryAtIndex:(NSUInteger)index {
  return contents->entries[index];
}

- (NSUInteger)bytes {
  return contents->index.bytes() + contents->entries.capacity() * sizeof(NSString *);
}

#pragma mark - Completing

- (NSArray *)completionsForSubstring:(NSString *)substring {
  if (substring == nil) return [NSArray array];
  std::u16string buffer;
  CompletionIndex::Matches matches = contents->index.matches(unitsOf(substring, buffer));
  if (!matches.undecided.empty()) [self judge:substring matches:matches];
  std::vector<std::uint32_t> numbers;
  numbers.reserve(matches.beginning.count() + matches.containing.count());
  matches.beginning.appendTo(numbers);
  matches.containing.appendTo(numbers);
  return [[[MatchedEntries alloc] initWithBook:self numbers:std::move(numbers)] autorelease];
}

/// Lets the platform itself compare the entries that the index could not.
- (void)judge:(NSString *)substring matches:(CompletionIndex::Matches &)matches {
  NSPredicate *const begins = [NSPredicate predicateWithFormat:@"SELF BEGINSWITH[c] %@", substring];
  NSPredicate *const contains = [NSPredicate predicateWithFormat:@"SELF contains[c] %@", substring];
  for (const std::uint32_t number : matches.undecided) {
    NSString *const entry = contents->entries[number];
    if ([begins evaluateWithObject:entry]) {
      matches.beginning.insert(number);
    } else if ([contains evaluateWithObject:entry]) {
      matches.containing.insert(number);
    }
  }
}

@end
