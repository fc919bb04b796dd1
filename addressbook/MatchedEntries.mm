#import "addressbook/MatchedEntries.h"

#include <utility>

#import "addressbook/IndexedBook.h"

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
