#import "send/Completion.h"

#import "send/IndexedBook.h"

namespace {

IndexedBook *currentIndex = nil;  // retained

}  // namespace

void useIndex(IndexedBook *index) {
  // A completion list that is open has its own reference.
  [currentIndex autorelease];
  currentIndex = [index retain];
}

NSArray *completionsIn(NSArray *book, NSString *substring) {
  if (![currentIndex followBook:book]) {
    useIndex([[[IndexedBook alloc] initWithBook:book] autorelease]);
  }
  return [currentIndex completionsForSubstring:substring];
}
