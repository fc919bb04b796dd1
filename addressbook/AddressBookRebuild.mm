#import "addressbook/AddressBookRebuild.h"

#import "addressbook/AddressBookLists.h"

namespace {

/// The elements after the first `seen`; none when the list has become shorter.
NSArray *addedTo(NSArray *list, NSUInteger seen) {
  const NSUInteger count = [list count];
  return count > seen ? [list subarrayWithRange:NSMakeRange(seen, count - seen)] : [NSArray array];
}

}  // namespace

@implementation AddressBookRebuild

@synthesize emptyLists;
@synthesize lists;
@synthesize isOver;

- (id)init {
  if ((self = [super init])) {
    emptyLists = [[AddressBookLists alloc] init];
    begunEntries = [emptyLists->entries retain];
    begunAddresses = [emptyLists->addresses retain];
    lists = [[AddressBookLists alloc] init];
  }
  return self;
}

- (void)dealloc {
  [emptyLists release];
  [begunEntries release];
  [begunAddresses release];
  [lists release];
  [addedEntries release];
  [addedAddresses release];
  [super dealloc];
}

- (BOOL)hasPutInPlace:(NSArray *)entries {
  return entries == begunEntries;
}

- (BOOL)noteAdditions {
  [addedEntries release];
  [addedAddresses release];
  addedEntries = [addedTo(begunEntries, seenEntries) retain];
  addedAddresses = [addedTo(begunAddresses, seenAddresses) retain];
  seenEntries += [addedEntries count];
  seenAddresses += [addedAddresses count];
  return [addedEntries count] + [addedAddresses count] > 0;
}

- (void)mergeAdditions {
  [lists mergeEntries:addedEntries addresses:addedAddresses];
}

@end
