#import <Foundation/Foundation.h>

@class IndexedBook;

/// Both lists of an address book, and the index for completing from the first. Used by one thread
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

/// Sorts the entries and makes their index. Takes seconds for a very large book, so it is called on
/// the thread that loads the book and not when the first key is typed.
- (void)sortAndIndex;

/// Adds entries and addresses that were added to the lists which these replace. Addresses go to the
/// end, entries to their place in the order. What is already listed is skipped: an address that is
/// there, and an entry that is there itself or whose address is. Makes a new index when it has
/// added an entry.
- (void)mergeEntries:(NSArray *)addedEntries addresses:(NSArray *)addedAddresses;

@end
