#import "addressbook/AddressBookCompletion.h"

#include <utility>

#import "addressbook/IndexedBook.h"

@implementation AddressBookCompletion

- (void)dealloc {
  [index release];
  [super dealloc];
}

- (NSArray *)completionsIn:(NSArray *)book forSubstring:(NSString *)substring {
  if (![index updateFromBook:book]) {
    [index release];
    index = [[IndexedBook alloc] initWithBook:book];
  }
  return [index completionsForSubstring:substring];
}

- (IndexedBook *)exchangeIndex:(IndexedBook *)newIndex {
  return std::exchange(index, newIndex);
}

@end
