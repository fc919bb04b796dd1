// Loading an address book until both lists are ready, against the fastest known way to copy the two
// columns plus one sort of as many finished entries.
#import <AppKit/AppKit.h>

#include <malloc.h>

#import "addressbook/AddressBookEntry.h"
#import "agent/KRVProxy.h"
#import "app/ContextMenuAppAppDelegate.h"
#include "bench/support/Memory.h"
#include "bench/support/Results.h"
#include "bench/support/Setting.h"

namespace {

constexpr int kRoundsOfTheSmallBookPerRound = 3;

id<KRVProxy> agentProxy() {
  return (id)[NSConnection rootProxyForConnectionWithRegisteredName:@"KRVSyncAgent" host:nil];
}

/// The records, which stay in the agent.
NSArray *askedRecords() {
  return [[agentProxy() getEmployeeAddressBook] objectForKey:@"value"];
}

NSArray *column(NSArray *records, NSString *key) {
  return [[[records valueForKey:key] componentsJoinedByString:@"\x1f"]
      componentsSeparatedByString:@"\x1f"];
}

/// One address book in the agent, and both ways to load it.
class Book {
 public:
  Book(const AgentProcess &agent, unsigned contacts) : contacts_(contacts) {
    agent.setScript(
        @{@"getEmployeeAddressBook" : @{@"contacts" : [NSNumber numberWithUnsignedInt:contacts]}});
    loadOurs();  // also makes the agent create its records now
  }
  ~Book() {
    [delegate_ release];
    [entries_ release];
  }
  Book(const Book &) = delete;
  Book &operator=(const Book &) = delete;

  void loadOurs() const {
    @autoreleasepool {
      [delegate_ getAddressBookForShareFolder];
      if ([[delegate_ addressBookForShare] count] != contacts_ ||
          [[delegate_ employeeContacts] count] != contacts_) {
        throw std::runtime_error("the lists are not complete");
      }
    }
  }

  /// The yardstick sorts existing entries: making them is not measured.
  void prepareYardstick() {
    @autoreleasepool {
      const EntryFormat format(@"%@ %@<%@>");
      NSArray *const names = column(askedRecords(), @"name");
      NSArray *const addresses = [delegate_ employeeContacts];
      for (unsigned i = 0; i < contacts_; ++i) {
        [entries_ addObject:addressBookEntry([names objectAtIndex:i], [addresses objectAtIndex:i],
                                             format)];
      }
    }
  }

  void loadYardstick() const {
    @autoreleasepool {
      NSArray *const records = askedRecords();
      NSArray *const names = column(records, @"name");
      NSArray *const addresses = column(records, @"primaryemail");
      NSMutableArray *const sorted = [NSMutableArray arrayWithArray:entries_];
      [sorted sortUsingSelector:@selector(localizedCaseInsensitiveCompare:)];
      if ([names count] != contacts_ || [addresses count] != contacts_) {
        throw std::runtime_error("the yardstick's columns are not complete");
      }
    }
  }

  /// In KiB: before a load, at its highest point, with the lists there, and when they are gone.
  void addMemory(Results &results) const {
    // Compared with the memory after the first load, because that fills caches.
    forgetLists();
    const double before = memoryOf(getpid()).resident;
    results.addNote("resident before, KiB", before);
    resetPeak();
    loadOurs();
    const double with = memoryOf(getpid()).resident;
    results.addNote("resident at peak, KiB", peakResident());
    results.addNote("resident with both lists, KiB", with);
    forgetLists();
    results.addNote("resident after, KiB", memoryOf(getpid()).resident);
    results.addNote("bytes a contact", (with - before) * 1024 / contacts_);
  }

 private:
  void forgetLists() const {
    @autoreleasepool {
      [delegate_ setAddressBookForShare:nil];
      [delegate_ setEmployeeContacts:nil];
    }
    malloc_trim(0);
  }

  unsigned contacts_;
  ContextMenuAppAppDelegate *delegate_ = [[ContextMenuAppAppDelegate alloc] init];
  NSMutableArray *entries_ = [[NSMutableArray alloc] init];
};

void measure(const AgentProcess &agent, const char *row, unsigned contacts, int rounds) {
  Book book(agent, contacts);
  Results results(row, "ms");
  book.addMemory(results);
  book.loadOurs();
  book.prepareYardstick();
  addInterleaved(
      results, rounds, [&] { return millisecondsOf([&] { book.loadOurs(); }); },
      [&] { return millisecondsOf([&] { book.loadYardstick(); }); });
  results.print();
}

}  // namespace

int main(int argc, char *argv[]) {
  const auto [rounds, isMillion] = benchmarkArguments(argc, argv, 7);
  @autoreleasepool {
    const AgentProcess agent;
    if (isMillion) {
      // The small book again, in the same minute: the row of the time a contact compares them.
      measure(agent, "address book 100,000", 100000, rounds);
      measure(agent, "address book 1,000,000", 1000000, rounds);
      return 0;
    }
    measure(agent, "address book 10,000", 10000, rounds * kRoundsOfTheSmallBookPerRound);
    measure(agent, "address book 100,000", 100000, rounds);
  }
  return 0;
}
