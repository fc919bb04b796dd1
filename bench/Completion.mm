// The cost of a key typed into a recipients field, against filtering the address book with the two
// predicates that say what the completions are.
#import <AppKit/AppKit.h>

#include <algorithm>
#include <random>
#include <string>

#import "addressbook/AddressBookCompletion.h"
#import "addressbook/IndexedBook.h"
#include "bench/support/Results.h"
#include "bench/support/Setting.h"

namespace {

/// Ours is too fast for the clock; a sample is the mean of this many.
constexpr int kRepeats = 5;
constexpr int kKeys = 2000;
constexpr NSUInteger kRowsOfTheList = 10;
constexpr int kRoundsOfASmallBookPerRound = 5;

struct Typed {
  const char *name;
  NSString *substring;
};

/// Hits and misses of one, two and five letters. "a" is in nearly every entry.
const Typed kTyped[] = {
    {"one letter", @"a"},         {"one letter, miss", @"!"}, {"two letters", @"An"},
    {"two letters, miss", @"q!"}, {"five letters", @"berto"}, {"five letters, miss", @"bertq"},
};

NSString *const kFirstNames[] = {@"Anna",    @"Roberto", @"Émile",  @"Zoë",   @"Jürgen", @"Olga",
                                 @"Юлия",    @"太郎",    @"Dana",   @"Brian", @"Mary",   @"Ángel",
                                 @"Siobhán", @"Peter",   @"Ingrid", @"Kemal"};
NSString *const kLastNames[] = {@"Doe",    @"Smith",  @"Müller", @"Fernández", @"山田", @"Иванова",
                                @"Berton", @"Okafor", @"Nguyen", @"Yılmaz",    @"Roth", @"Adebayo"};

/// Every run uses the same keys.
NSArray *bookOf(unsigned contacts) {
  std::mt19937 random(contacts);
  NSMutableArray *const book = [NSMutableArray arrayWithCapacity:contacts];
  for (unsigned i = 0; i < contacts; ++i) {
    NSString *const first = kFirstNames[random() % std::size(kFirstNames)];
    NSString *const last = kLastNames[random() % std::size(kLastNames)];
    const unsigned number = random() % 100000;
    [book addObject:[NSString stringWithFormat:@"%@ %@<person%u.%c@example.org>", first, last,
                                               number, 'a' + static_cast<int>(random() % 26)]];
  }
  [book sortUsingSelector:@selector(localizedCaseInsensitiveCompare:)];
  return book;
}

NSArray *filtered(NSArray *book, NSString *substring) {
  NSPredicate *const begins = [NSPredicate predicateWithFormat:@"SELF BEGINSWITH[c] %@", substring];
  NSPredicate *const contains =
      [NSPredicate predicateWithFormat:@"SELF contains[c] %@ AND NOT(SELF BEGINSWITH[c] %@)",
                                       substring, substring];
  return [[book filteredArrayUsingPredicate:begins]
      arrayByAddingObjectsFromArray:[book filteredArrayUsingPredicate:contains]];
}

NSArray *completionsIn(NSArray *book, NSString *substring) {
  static AddressBookCompletion *const completion = [[AddressBookCompletion alloc] init];
  return [completion completionsIn:book forSubstring:substring];
}

/// From the key to the strings that the list shows.
void typeKey(NSArray *book, NSString *substring) {
  @autoreleasepool {
    NSArray *const answer = completionsIn(book, substring);
    const NSUInteger shown = std::min([answer count], kRowsOfTheList);
    for (NSUInteger row = 0; row < shown; ++row) (void)[[answer objectAtIndex:row] length];
  }
}

double millisecondsOfAKey(NSArray *book, NSString *substring) {
  return millisecondsOf([&] {
           for (int i = 0; i < kRepeats; ++i) typeKey(book, substring);
         }) /
         kRepeats;
}

double millisecondsOfFiltering(NSArray *book, NSString *substring) {
  return millisecondsOf([&] {
    @autoreleasepool {
      (void)[filtered(book, substring) count];
    }
  });
}

std::string rowName(unsigned contacts, const std::string &what) {
  NSString *const thousands = contacts >= 1000000
                                  ? [NSString stringWithFormat:@"%u,000", contacts / 1000000]
                                  : [NSString stringWithFormat:@"%u", contacts / 1000];
  NSString *const number = [thousands stringByAppendingString:@",000"];
  return "completion " + std::string([number UTF8String]) + ", " + what;
}

void measureAgainstFiltering(NSArray *book, int rounds) {
  const auto contacts = static_cast<unsigned>([book count]);
  for (const Typed &typed : kTyped) {
    if (![completionsIn(book, typed.substring) isEqual:filtered(book, typed.substring)]) {
      throw std::runtime_error(std::string("not the same completions: ") + typed.name);
    }
    Results results(rowName(contacts, typed.name), "ms");
    addInterleaved(
        results, rounds, [&] { return millisecondsOfAKey(book, typed.substring); },
        [&] { return millisecondsOfFiltering(book, typed.substring); });
    results.addNote("completions",
                    static_cast<double>([completionsIn(book, typed.substring) count]));
    results.print();
  }
}

/// The keys that type a part of an entry, now and then with a letter that is not in it.
NSString *randomSubstring(NSArray *book, std::mt19937 &random) {
  NSString *const entry = [book objectAtIndex:random() % [book count]];
  const NSUInteger begin = random() % [entry length];
  const NSUInteger length = std::min<NSUInteger>([entry length] - begin, 1 + random() % 8);
  NSString *const part = [entry substringWithRange:NSMakeRange(begin, length)];
  return random() % 4 == 0 ? [part stringByAppendingString:@"x"] : part;
}

double slowestOfAHundredKeys(NSArray *book) {
  std::mt19937 random(2011);
  std::vector<double> times;
  for (int i = 0; i < kKeys; ++i) {
    @autoreleasepool {
      NSString *const substring = randomSubstring(book, random);
      times.push_back(millisecondsOf([&] { typeKey(book, substring); }));
    }
  }
  const auto percentile = times.begin() + kKeys * 99 / 100;
  std::nth_element(times.begin(), percentile, times.end());
  return *percentile;
}

void measureSlowest(NSArray *book, int rounds) {
  Results results(rowName(static_cast<unsigned>([book count]), "99th percentile"), "ms");
  for (int round = 0; round < rounds; ++round) results.addValue(slowestOfAHundredKeys(book));
  results.print();
}

void measureIndex(NSArray *book, int rounds) {
  Results results(rowName(static_cast<unsigned>([book count]), "making the index"), "ms");
  for (int round = 0; round < rounds; ++round) {
    @autoreleasepool {
      results.addValue(
          millisecondsOf([&] { [[[IndexedBook alloc] initWithBook:book] autorelease]; }));
    }
  }
  IndexedBook *const index = [[[IndexedBook alloc] initWithBook:book] autorelease];
  results.addNote("bytes an entry", static_cast<double>([index bytes]) / [book count]);
  results.print();
}

}  // namespace

int main(int argc, char *argv[]) {
  const auto [rounds, isMillion] = benchmarkArguments(argc, argv, 7);
  const std::vector<unsigned> books =
      isMillion ? std::vector{1000000U} : std::vector{1000U, 20000U, 100000U};
  for (const unsigned contacts : books) {
    @autoreleasepool {
      NSArray *const book = bookOf(contacts);
      measureAgainstFiltering(book,
                              contacts < 100000 ? rounds * kRoundsOfASmallBookPerRound : rounds);
      measureSlowest(book, rounds);
      measureIndex(book, rounds);
    }
  }
  return 0;
}
