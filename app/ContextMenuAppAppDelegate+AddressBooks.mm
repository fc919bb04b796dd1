#include <utility>

#import "agent/BVDataModelController.h"
#import "agent/BackgroundTurn.h"
#import "agent/ContactRecords.h"
#import "agent/ResultDictionary.h"
#import "app/AddressBookEntry.h"
#import "app/ContextMenuAppAppDelegate.h"
#import "app/emailContact.h"
#import "send/Completion.h"
#import "send/IndexedBook.h"
#import "send/LocalizedText.h"

/// Both lists, on their way to the main thread, with what completion needs of the first one.
@interface AddressBookLists : NSObject {
 @public
  NSMutableArray *entries;
  NSMutableArray *addresses;
  IndexedBook *index;
}
@end

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

@end

namespace {

/// Fills the lists from the agent's contact records; answers false when the connection broke before
/// the last one.
bool fill(AddressBookLists *lists, id records) {
  const EntryFormat lastCommaFirstFormat(localizedText(@"personNameinAddressbookFormatKey"));
  const bool complete = agent::visitContactRecords(records, [&](NSString *name, NSString *address) {
    emailContact *const contact = [[emailContact alloc] init];
    [contact setPersonEmaild:address];
    [contact setPersonName:name];
    // A contact without an address is nobody's colleague, but is still listed.
    if ([contact personEmaild] != nil) [lists->addresses addObject:[contact personEmaild]];
    [lists->entries addObject:addressBookEntry([contact personName], [contact personEmaild],
                                               lastCommaFirstFormat)];
    [contact release];
  });
  [lists->entries sortUsingSelector:@selector(localizedCaseInsensitiveCompare:)];
  // Here, and not at the first key that is typed.
  lists->index = [[IndexedBook alloc] initWithBook:lists->entries];
  return complete;
}

/// Fills the lists with what the agent answers. Blocks the calling thread meanwhile.
bool askAgentFor(AddressBookLists *lists) {
  const agent::BackgroundTurn turn;
  BVDataModelController *const link = [[[BVDataModelController alloc] init] autorelease];
  NSDictionary *const reply = [link getEmployeeAddressBook];
  return fill(lists, [reply objectForKey:agent::kValueKey]);
}

}  // namespace

@implementation ContextMenuAppAppDelegate (AddressBooks)

/// Main thread. Into the fields and not through the setters, which would store immutable copies:
/// the lists grow when a colleague is found. The former lists go the other way: letting go of
/// 100,000 entries takes time, and is done by the thread that loads. (A reader further up the stack
/// has a reference of its own from the getter.)
- (void)exchangeAddressBooks:(AddressBookLists *)lists {
  std::swap(addressBookForShare, lists->entries);
  std::swap(employeeContacts, lists->addresses);
  lists->index = exchangeIndex(lists->index);
}

- (void)publishAddressBooks:(AddressBookLists *)lists {
  [self performSelectorOnMainThread:@selector(exchangeAddressBooks:)
                         withObject:lists
                      waitUntilDone:YES];
}

- (void)getAddressBookForShareFolder {
  @autoreleasepool {
    [self publishAddressBooks:[[[AddressBookLists alloc] init] autorelease]];
    AddressBookLists *const lists = [[[AddressBookLists alloc] init] autorelease];
    if (askAgentFor(lists)) [self publishAddressBooks:lists];
  }
}

- (void)updateAddressBook:(NSTimer *)timer {
  (void)timer;
  [self performSelectorInBackground:@selector(getAddressBookForShareFolder) withObject:nil];
}

- (void)conditionalFetchAddressBook {
  if ([[self addressBookForShare] count] == 0) [self getAddressBookForShareFolder];
}

@end
