#import <Foundation/Foundation.h>

@class AddressBookLists;

/// One rebuild of the address books: the lists that the delegate puts in place at its start and at
/// its end. Used alternately by the thread that loads and by the main thread, which never use it at
/// the same time.
///
/// The lists are empty while the agent is asked, and the invite tab may add a colleague to them
/// during that time. Such an addition becomes part of the rebuilt lists.
@interface AddressBookRebuild : NSObject {
 @private
  AddressBookLists *emptyLists;
  NSMutableArray *begunEntries;
  NSMutableArray *begunAddresses;
  AddressBookLists *lists;
  NSArray *addedEntries;
  NSArray *addedAddresses;
  NSUInteger seenEntries;
  NSUInteger seenAddresses;
  BOOL isOver;
}

/// The lists that are in place while the agent is asked; after the exchange at the start, the
/// former ones.
@property (nonatomic, readonly) AddressBookLists *emptyLists;

/// The lists to fill from the agent's answer, and, after the exchange at the end, the former ones.
@property (nonatomic, readonly) AddressBookLists *lists;

/// Set by the delegate when the lists are in place, or when a newer rebuild has replaced them.
@property (nonatomic, assign) BOOL isOver;

/// Whether these entries are those that this rebuild put in place at its start. If not, a newer
/// rebuild has started, and its lists must stay.
- (BOOL)hasPutInPlace:(NSArray *)entries;

/// Main thread: notes what has been added since the last call, for mergeAdditions; answers whether
/// there was anything.
- (BOOL)noteAdditions;

/// On the loading thread: adds to lists what noteAdditions has noted. Does nothing the first time.
- (void)mergeAdditions;

@end
