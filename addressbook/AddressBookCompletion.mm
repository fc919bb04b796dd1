#import "addressbook/AddressBookCompletion.h"

#include <utility>

#import "addressbook/IndexedBook.h"

namespace {

IndexedBook *currentIndex = nil;  // retained

}  // namespace

IndexedBook *exchangeIndex(IndexedBook *index) {
  return std::exchange(currentIndex, index);
}

NSArray *completionsIn(NSArray *book, NSString *substring) {
  if (![currentIndex updateFromBook:book]) {
    [exchangeIndex([[IndexedBook alloc] initWithBook:book]) release];
  }
  return [currentIndex completionsForSubstring:substring];
}
