// The rows of the matrix.
#include <algorithm>
#include <iterator>

#import "tests/faults/Fault.h"

namespace {

using enum Outcome;

/// A dictionary literal with a comma cannot stand in a table of lambdas without its own brackets.
NSDictionary *replying(id reply) {
  return [NSDictionary dictionaryWithObject:reply forKey:@"reply"];
}

NSDictionary *inHealth(id value) {
  return replying(success(value));
}

/// A reply with this error, the value, and a message.
NSDictionary *withError(id error, id value) {
  return replying(@{@"error" : error, @"value" : value, @"errorMessage" : @"quota"});
}

/// A reply without an error, with this value.
NSDictionary *withValue(id value) {
  return replying(success(value));
}

NSDictionary *refusing(id message) {
  return replying(@{@"error" : @1, @"errorMessage" : message});
}

// The columns: link, action, list, contacts.
const std::vector<Fault> kFaults = {
    {"InHealth", Strike::None, inHealth, Succeeds, Succeeds, Succeeds, kHealthyContacts},

    // The agent's life
    {"Absent", Strike::Absent, inHealth, NoReply, NoReply, NoReply, 0},
    {"StartsLate", Strike::StartsLate, inHealth, Succeeds, Succeeds, Succeeds, kHealthyContacts},
    {"KilledBefore", Strike::KilledBefore, inHealth, NoReply, NoReply, NoReply, 0},
    {"KilledDuring", Strike::DiesDuring,
     [](id) -> NSDictionary * { return @{@"delay" : @0.1, @"die" : @"before"}; }, NoReply, NoReply,
     NoReply, 0},
    {"KilledWhileItsReplyIsRead", Strike::DiesDuring,
     [](id) -> NSDictionary * { return @{@"die" : @"whenRead"}; }, NoReply, NoReply, NoReply, 0},
    // A link is a text, which comes with the reply, and of an action's value nothing is read.
    {"KilledWhileItsValueIsRead", Strike::DiesDuring,
     [](id value) -> NSDictionary * {
       return @{@"die" : @"whenValueIsRead", @"reply" : success(value)};
     },
     Succeeds, Succeeds, NoReply, 0},
    {"KilledAfter", Strike::KilledAfter, inHealth, Succeeds, Succeeds, Succeeds, kHealthyContacts},
    {"HangsAndWakes", Strike::None,
     [](id value) -> NSDictionary * { return @{@"delay" : @0.5, @"reply" : success(value)}; },
     Succeeds, Succeeds, Succeeds, kHealthyContacts},
    {"StoppedAndContinued", Strike::StoppedAndContinued, inHealth, Succeeds, Succeeds, Succeeds,
     kHealthyContacts},
    {"Restarted", Strike::Restarted, inHealth, Succeeds, Succeeds, Succeeds, kHealthyContacts},
    {"Raises", Strike::None, [](id) -> NSDictionary * { return @{@"raise" : @"NSRangeException"}; },
     NoReply, NoReply, NoReply, 0},

    // No reply that could be read
    {"AnswersNil", Strike::None, [](id) -> NSDictionary * { return @{@"nil" : @1}; }, NoReply,
     NoReply, NoReply, 0},
    {"AnswersNothing", Strike::None, [](id) { return replying(@{}); }, NoReply, NoReply, NoReply,
     0},
    {"AnswersAnArray", Strike::None,
     [](id value) {
       return replying(@[ @"error", value ]);
     },
     NoReply, NoReply, NoReply, 0},
    {"AnswersAText", Strike::None, [](id) { return replying(@"error"); }, NoReply, NoReply, NoReply,
     0},
    {"AnswersANumber", Strike::None, [](id) { return replying(@5); }, NoReply, NoReply, NoReply, 0},
    {"AnswersNull", Strike::None, [](id) { return replying([NSNull null]); }, NoReply, NoReply,
     NoReply, 0},
    {"AnswersOtherKeysOnly", Strike::None, [](id) { return replying(@{@"status" : @"ok"}); },
     Refused, Succeeds, Nobody, 0},

    // Refusals
    {"Refuses", Strike::None, [](id) { return refusing(@"quota"); }, Refused, Refused, Nobody, 0},
    {"RefusesWithoutAMessage", Strike::None, [](id) { return replying(@{@"error" : @1}); }, Refused,
     Refused, Nobody, 0},
    {"RefusesWithANumberAsMessage", Strike::None, [](id) { return refusing(@7); }, Refused, Refused,
     Nobody, 0},
    {"RefusesWithDirectives", Strike::None, [](id) { return refusing(@"%@%n%s%999999d"); }, Refused,
     Refused, Nobody, 0},

    // An error of another kind: a link needs one that reads "0", an action one that is not true,
    // a list none.
    {"ErrorIsMissing", Strike::None, [](id value) { return replying(@{@"value" : value}); },
     Refused, Succeeds, Succeeds, kHealthyContacts},
    {"ErrorIsNull", Strike::None, [](id value) { return withError([NSNull null], value); }, Refused,
     Succeeds, Succeeds, kHealthyContacts},
    {"ErrorIsFalse", Strike::None,
     [](id value) { return withError([NSNumber numberWithBool:NO], value); }, Succeeds, Succeeds,
     Succeeds, kHealthyContacts},
    {"ErrorIsTrue", Strike::None,
     [](id value) { return withError([NSNumber numberWithBool:YES], value); }, Refused, Refused,
     Succeeds, kHealthyContacts},
    {"ErrorIsNegative", Strike::None, [](id value) { return withError(@-1, value); }, Refused,
     Refused, Succeeds, kHealthyContacts},
    {"ErrorIsHuge", Strike::None, [](id value) { return withError(@4611686018427387904LL, value); },
     Refused, Refused, Succeeds, kHealthyContacts},
    {"ErrorIsAFraction", Strike::None, [](id value) { return withError(@0.5, value); }, Refused,
     Refused, Succeeds, kHealthyContacts},
    {"ErrorIsZeroAsText", Strike::None, [](id value) { return withError(@"0", value); }, Succeeds,
     Succeeds, Succeeds, kHealthyContacts},
    {"ErrorIsFiveAsText", Strike::None, [](id value) { return withError(@"5", value); }, Refused,
     Refused, Succeeds, kHealthyContacts},
    {"ErrorIsAWord", Strike::None, [](id value) { return withError(@"broken", value); }, Refused,
     Succeeds, Succeeds, kHealthyContacts},
    {"ErrorIsAnArray", Strike::None, [](id value) { return withError(@[ @1 ], value); }, Refused,
     Succeeds, Succeeds, kHealthyContacts},
    {"ErrorIsADictionary", Strike::None, [](id value) { return withError(@{@"a" : @1}, value); },
     Refused, Succeeds, Succeeds, kHealthyContacts},

    // A value of another kind
    {"ValueIsMissing", Strike::None, [](id) { return replying(@{@"error" : @0}); },
     SucceedsWithoutLink, Succeeds, Nobody, 0},
    {"ValueIsNull", Strike::None, [](id) { return withValue([NSNull null]); }, SucceedsWithoutLink,
     Succeeds, Nobody, 0},
    {"ValueIsANumber", Strike::None, [](id) { return withValue(@5); }, SucceedsWithoutLink,
     Succeeds, Nobody, 0},
    {"ValueIsADictionary", Strike::None, [](id) { return withValue(@{@"name" : @"x"}); },
     SucceedsWithoutLink, Succeeds, Nobody, 0},
    // Of an address book each element counts as a contact, here as one without name and address.
    {"ValueIsAnArrayOfOtherThings", Strike::None,
     [](id) {
       return withValue(@[ @1, [NSNull null], @"x", @[ @{} ] ]);
     },
     SucceedsWithoutLink, Succeeds, Nobody, 4},
    {"ValueIsAnArrayOfEmptyDictionaries", Strike::None,
     [](id) {
       return withValue(@[ @{}, @{} ]);
     },
     SucceedsWithoutLink, Succeeds, Nobody, 2},

    // Enormous
    {"ValueIsAnEnormousArray", Strike::None,
     [](id) -> NSDictionary * { return @{@"contacts" : @100000}; }, SucceedsWithoutLink, Succeeds,
     Nobody, 100000},
    {"MessageIsAnEnormousText", Strike::None,
     [](id) -> NSDictionary * { return @{@"messageLength" : @20000000}; }, Refused, Refused, Nobody,
     0},
};

}  // namespace

void PrintTo(const Fault &fault, std::ostream *out) {
  *out << fault.name;
}

const std::vector<Fault> &allFaults() {
  return kFaults;
}

std::vector<Fault> faultsOfACall() {
  std::vector<Fault> faults;
  std::copy_if(kFaults.begin(), kFaults.end(), std::back_inserter(faults), [](const Fault &fault) {
    return fault.strike == Strike::None || fault.strike == Strike::DiesDuring;
  });
  return faults;
}
