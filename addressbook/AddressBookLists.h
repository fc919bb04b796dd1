#import <Foundation/Foundation.h>

@class IndexedBook;

/// Both lists of an address book, with what completion needs of the first one. Used by one thread
/// at a time.
@interface AddressBookLists : NSObject {
 @public
  /// One entry for each contact, sorted without regard to letter case. Owned, as are the others.
  NSMutableArray *entries;
  /// The contacts' addresses, in the agent's order.
  NSMutableArray *addresses;
  /// Of the entries; nil until sortAndIndex.
  IndexedBook *index;
}

/// Empty lists.
- (id)init;

/// Sorts the entries and makes their index. Takes a while for a large book: to be called by the
/// thread that loads it, and not at the first key that is typed.
- (void)sortAndIndex;

/// Takes up entries and addresses that were added to the lists which these replace. Addresses go to
/// the end, entries to their place. What the agent lists by now is left out: an address that is
/// there, and an entry whose address is there or that is there itself. Needs no index, and makes a
/// new one when it has taken up an entry.
- (void)mergeEntries:(NSArray *)addedEntries addresses:(NSArray *)addedAddresses;

@end
