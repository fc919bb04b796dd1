#include <utility>

#import "addressbook/AddressBookCompletion.h"
#import "addressbook/AddressBookEntry.h"
#import "addressbook/AddressBookLists.h"
#import "addressbook/AddressBookRebuild.h"
#import "addressbook/emailContact.h"
#import "agent/BVDataModelController.h"
#import "agent/BackgroundRequestLock.h"
#import "agent/Records.h"
#import "agent/ResultDictionary.h"
#import "app/ContextMenuAppAppDelegate.h"
#import "text/LocalizedText.h"

namespace {

/// Fills the lists from the agent's contact records; returns false when the connection broke before
/// the last one.
bool fill(AddressBookLists *lists, id records) {
  const EntryFormat lastCommaFirstFormat(localizedText(@"personNameinAddressbookFormatKey"));
  const bool complete = agent::visitContactRecords(records, [&](NSString *name, NSString *address) {
    emailContact *const contact = [[emailContact alloc] init];
    [contact setPersonEmaild:address];
    [contact setPersonName:name];
    // A contact without an address is no colleague, but is listed.
    if ([contact personEmaild] != nil) [lists->addresses addObject:[contact personEmaild]];
    [lists->entries addObject:addressBookEntry([contact personName], [contact personEmaild],
                                               lastCommaFirstFormat)];
    [contact release];
  });
  [lists sortAndIndex];
  return complete;
}

/// Fills the lists with the agent's reply; returns false when the agent could not be asked, or when
/// the connection broke before the last record. Blocks the calling thread.
bool askAgentFor(AddressBookLists *lists) {
  bool isComplete = false;
  agent::withBackgroundRequestLock([&] {
    BVDataModelController *const agent = [[[BVDataModelController alloc] init] autorelease];
    NSDictionary *const reply = [agent getEmployeeAddressBook];
    isComplete = fill(lists, [reply objectForKey:agent::kValueKey]);
  });
  return isComplete;
}

}  // namespace

@implementation ContextMenuAppAppDelegate (AddressBooks)

- (AddressBookCompletion *)completion {
  static AddressBookCompletion *const completion = [[AddressBookCompletion alloc] init];
  return completion;
}

/// Main thread. Sets the fields and does not use the setters, which would store immutable copies:
/// the lists grow when a colleague is found. The thread that loads gets the former lists, because
/// releasing 100,000 entries takes time. (A reader further up the stack has retained them.)
- (void)exchangeAddressBooks:(AddressBookLists *)lists {
  std::swap(addressBookForShare, lists->entries);
  std::swap(employeeContacts, lists->addresses);
  lists->index = [[self completion] exchangeIndex:lists->index];
}

- (void)beginRebuild:(AddressBookRebuild *)rebuild {
  [self exchangeAddressBooks:[rebuild emptyLists]];
}

/// Does not finish when something has been added since the last call: the thread that loads must
/// first add it to the index.
- (void)finishRebuild:(AddressBookRebuild *)rebuild {
  // Of several rebuilds at a time the one that started last decides the contents of the lists.
  if (![rebuild hasPutInPlace:addressBookForShare]) {
    [rebuild setIsOver:YES];
  } else if (![rebuild noteAdditions]) {
    [self exchangeAddressBooks:[rebuild lists]];
    [rebuild setIsOver:YES];
  }
}

- (void)onMainThread:(SEL)step with:(AddressBookRebuild *)rebuild {
  [self performSelectorOnMainThread:step withObject:rebuild waitUntilDone:YES];
}

- (void)getAddressBookForShareFolder {
  @autoreleasepool {
    AddressBookRebuild *const rebuild = [[[AddressBookRebuild alloc] init] autorelease];
    [self onMainThread:@selector(beginRebuild:) with:rebuild];
    if (!askAgentFor([rebuild lists])) return;
    while (![rebuild isOver]) {
      [rebuild mergeAdditions];
      [self onMainThread:@selector(finishRebuild:) with:rebuild];
    }
  }
}

- (void)updateAddressBook:(NSTimer *)timer {
  (void)timer;
  [self performSelectorInBackground:@selector(getAddressBookForShareFolder) withObject:nil];
}

- (NSArray *)completionsForSubstring:(NSString *)substring {
  return [[self completion] completionsIn:[self addressBookForShare] forSubstring:substring];
}

- (void)conditionalFetchAddressBook {
  if ([[self addressBookForShare] count] == 0) [self getAddressBookForShareFolder];
}

@end
