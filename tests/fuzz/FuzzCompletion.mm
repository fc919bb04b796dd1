#include "addressbook/CaseFolding.h"
#import "addressbook/IndexedBook.h"
#import "addressbook/PlatformCaseFolding.h"
#include "tests/fuzz/Input.h"
#include "tests/fuzz/Target.h"
#include "tests/unit/Books.h"

namespace {

/// The same objects, not only equal ones.
bool isSame(NSArray *answer, NSArray *expected) {
  if ([answer count] != [expected count]) return false;
  for (NSUInteger i = 0; i < [expected count]; ++i) {
    if ([answer objectAtIndex:i] != [expected objectAtIndex:i]) return false;
  }
  return true;
}

void check(NSArray *book, NSString *substring, const CaseFolding &folding) {
  // Half of the book is there when the index is made, the other half is added later.
  const NSRange half = NSMakeRange(0, [book count] / 2);
  IndexedBook *const index = [[[IndexedBook alloc] initWithBook:[book subarrayWithRange:half]
                                                        folding:folding] autorelease];
  fuzz::promise([index updateFromBook:book], "an index follows a book that grows");
  fuzz::promise(
      isSame([index completionsForSubstring:substring], filteredByPredicates(book, substring)),
      "the index finds what the predicates find");
}

}  // namespace

/// input: a line with what is typed, then the entries, a line each.
void fuzz::Completion(std::string_view input) {
  auto lines = linesOf(input);
  NSString *const substring = stringFrom(lines.front());
  NSMutableArray *const book = [NSMutableArray array];
  for (std::size_t i = 1; i < lines.size(); ++i) [book addObject:stringFrom(lines[i])];
  static const CaseFolding ascii;
  check(book, substring, platformCaseFolding());
  check(book, substring, ascii);
}
