#import <Foundation/Foundation.h>

@class AddressBookLists;

/// One rebuild of the address books: what the delegate exchanges at its begin and at its end. The
/// thread that loads and the main thread use it in turn, never at once.
///
/// The lists are empty while the agent is asked, and the invite tab may add a colleague to them
/// meanwhile. Such an addition is part of the rebuilt lists.
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

/// The lists that are in place while the agent is asked. After they have been exchanged for the
/// former ones, those.
@property (nonatomic, readonly) AddressBookLists *emptyLists;

/// The lists to fill from the agent's answer, and, after the exchange at the end, the former ones.
@property (nonatomic, readonly) AddressBookLists *lists;

/// Set by the delegate: the lists are in place, or will never be.
@property (nonatomic, assign) BOOL isOver;

/// Whether these entries are those that this rebuild put in place at its begin. If not, a newer
/// rebuild has begun, and its lists are to stay.
- (BOOL)hasPutInPlace:(NSArray *)entries;

/// Main thread: notes what has been added since the last call, for mergeAdditions; answers whether
/// there was anything.
- (BOOL)noteAdditions;

/// On the loading thread: adds to lists what noteAdditions has noted. Does nothing the first time.
- (void)mergeAdditions;

@end
