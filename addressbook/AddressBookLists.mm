#import "addressbook/AddressBookLists.h"

#import "addressbook/AddressBookEntry.h"
#import "addressbook/IndexedBook.h"

@implementation AddressBookLists

- (id)init {
  if ((self = [super init])) {
    entries = [[NSMutableArray alloc] init];
    addresses = [[NSMutableArray alloc] init];
  }
  return self;
}

- (void)dealloc {
  [entries release];
  [addresses release];
  [index release];
  [super dealloc];
}

- (void)sortAndIndex {
  [entries sortUsingSelector:@selector(localizedCaseInsensitiveCompare:)];
  [index release];
  index = [[IndexedBook alloc] initWithBook:entries];
}

- (void)mergeEntries:(NSArray *)addedEntries addresses:(NSArray *)addedAddresses {
  const NSUInteger before = [entries count];
  // Before the addresses, among which an added entry's own address would be found.
  for (NSString *entry in addedEntries) {
    NSString *const address = addressOfEntry(entry);
    const BOOL isListed = address != nil && [addresses containsObject:address];
    if (!isListed && ![entries containsObject:entry]) [entries addObject:entry];
  }
  for (NSString *address in addedAddresses) {
    if (![addresses containsObject:address]) [addresses addObject:address];
  }
  if ([entries count] > before) [self sortAndIndex];
}

@end
