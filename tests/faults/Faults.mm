// The rows of the matrix.
#import "tests/faults/Fault.h"
#include "tests/support/Thorough.h"

namespace {

using enum FaultKind;
using enum Outcome;

/// A dictionary literal with a comma needs its own brackets in a table of lambdas.
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
    {"InHealth", Health, ProcessFault::None, inHealth, Succeeds, Succeeds, Succeeds,
     kHealthyContacts},

    // The agent's life
    {"Absent", OfTheProcess, ProcessFault::Absent, inHealth, NoReply, NoReply, NoReply, 0},
    {"StartsLate", OfTheProcess, ProcessFault::StartsLate, inHealth, Succeeds, Succeeds, Succeeds,
     kHealthyContacts},
    {"KilledBefore", OfTheProcess, ProcessFault::KilledBefore, inHealth, NoReply, NoReply, NoReply,
     0},
    {"KilledDuring", OfTheProcess, ProcessFault::DiesDuring,
     [](id) -> NSDictionary * { return @{@"delay" : @0.1, @"die" : @"before"}; }, NoReply, NoReply,
     NoReply, 0},
    {"KilledWhileItsReplyIsRead", OfTheProcess, ProcessFault::DiesDuring,
     [](id) -> NSDictionary * { return @{@"die" : @"whenRead"}; }, NoReply, NoReply, NoReply, 0},
    // A link is a text, which is sent with the reply, and the value of an action's reply is read
    // only after an invitation (outcomeIn).
    {"KilledWhileItsValueIsRead", OfTheProcess, ProcessFault::DiesDuring,
     [](id value) -> NSDictionary * {
       return @{@"die" : @"whenValueIsRead", @"reply" : success(value)};
     },
     Succeeds, Succeeds, NoReply, 0},
    {"KilledAfter", OfTheProcess, ProcessFault::KilledAfter, inHealth, Succeeds, Succeeds, Succeeds,
     kHealthyContacts},
    {"HangsAndWakes", OfTheProcess, ProcessFault::None,
     [](id value) -> NSDictionary * { return @{@"delay" : @0.5, @"reply" : success(value)}; },
     Succeeds, Succeeds, Succeeds, kHealthyContacts},
    {"StoppedAndContinued", OfTheProcess, ProcessFault::StoppedAndContinued, inHealth, Succeeds,
     Succeeds, Succeeds, kHealthyContacts},
    {"Restarted", OfTheProcess, ProcessFault::Restarted, inHealth, Succeeds, Succeeds, Succeeds,
     kHealthyContacts},
    {"Raises", OfTheProcess, ProcessFault::None,
     [](id) -> NSDictionary * { return @{@"raise" : @"NSRangeException"}; }, NoReply, NoReply,
     NoReply, 0},

    // No reply that could be read
    {"AnswersNil", UnreadableReply, ProcessFault::None,
     [](id) -> NSDictionary * { return @{@"nil" : @1}; }, NoReply, NoReply, NoReply, 0},
    {"AnswersNothing", UnreadableReply, ProcessFault::None, [](id) { return replying(@{}); },
     NoReply, NoReply, NoReply, 0},
    {"AnswersAnArray", UnreadableReply, ProcessFault::None,
     [](id value) {
       return replying(@[ @"error", value ]);
     },
     NoReply, NoReply, NoReply, 0},
    {"AnswersAText", UnreadableReply, ProcessFault::None, [](id) { return replying(@"error"); },
     NoReply, NoReply, NoReply, 0},
    {"AnswersANumber", UnreadableReply, ProcessFault::None, [](id) { return replying(@5); },
     NoReply, NoReply, NoReply, 0},
    {"AnswersNull", UnreadableReply, ProcessFault::None, [](id) { return replying([NSNull null]); },
     NoReply, NoReply, NoReply, 0},
    {"AnswersOtherKeysOnly", UnreadableReply, ProcessFault::None,
     [](id) { return replying(@{@"status" : @"ok"}); }, Refused, Succeeds, Nobody, 0},

    // Refusals
    {"Refuses", Refusal, ProcessFault::None, [](id) { return refusing(@"quota"); }, Refused,
     Refused, Nobody, 0},
    {"RefusesWithoutAMessage", Refusal, ProcessFault::None,
     [](id) { return replying(@{@"error" : @1}); }, Refused, Refused, Nobody, 0},
    {"RefusesWithANumberAsMessage", Refusal, ProcessFault::None, [](id) { return refusing(@7); },
     Refused, Refused, Nobody, 0},
    {"RefusesWithDirectives", Refusal, ProcessFault::None,
     [](id) { return refusing(@"%@%n%s%999999d"); }, Refused, Refused, Nobody, 0},

    // An error of another kind: a link needs one that reads "0", an action one that is not true,
    // a list none.
    {"ErrorIsMissing", UnusualError, ProcessFault::None,
     [](id value) { return replying(@{@"value" : value}); }, Refused, Succeeds, Succeeds,
     kHealthyContacts},
    {"ErrorIsNull", UnusualError, ProcessFault::None,
     [](id value) { return withError([NSNull null], value); }, Refused, Succeeds, Succeeds,
     kHealthyContacts},
    {"ErrorIsFalse", UnusualError, ProcessFault::None,
     [](id value) { return withError([NSNumber numberWithBool:NO], value); }, Succeeds, Succeeds,
     Succeeds, kHealthyContacts},
    {"ErrorIsTrue", UnusualError, ProcessFault::None,
     [](id value) { return withError([NSNumber numberWithBool:YES], value); }, Refused, Refused,
     Succeeds, kHealthyContacts},
    {"ErrorIsNegative", UnusualError, ProcessFault::None,
     [](id value) { return withError(@-1, value); }, Refused, Refused, Succeeds, kHealthyContacts},
    {"ErrorIsHuge", UnusualError, ProcessFault::None,
     [](id value) { return withError(@4611686018427387904LL, value); }, Refused, Refused, Succeeds,
     kHealthyContacts},
    {"ErrorIsAFraction", UnusualError, ProcessFault::None,
     [](id value) { return withError(@0.5, value); }, Refused, Refused, Succeeds, kHealthyContacts},
    {"ErrorIsZeroAsText", UnusualError, ProcessFault::None,
     [](id value) { return withError(@"0", value); }, Succeeds, Succeeds, Succeeds,
     kHealthyContacts},
    {"ErrorIsFiveAsText", UnusualError, ProcessFault::None,
     [](id value) { return withError(@"5", value); }, Refused, Refused, Succeeds, kHealthyContacts},
    {"ErrorIsAWord", UnusualError, ProcessFault::None,
     [](id value) { return withError(@"broken", value); }, Refused, Succeeds, Succeeds,
     kHealthyContacts},
    {"ErrorIsAnArray", UnusualError, ProcessFault::None,
     [](id value) { return withError(@[ @1 ], value); }, Refused, Succeeds, Succeeds,
     kHealthyContacts},
    {"ErrorIsADictionary", UnusualError, ProcessFault::None,
     [](id value) { return withError(@{@"a" : @1}, value); }, Refused, Succeeds, Succeeds,
     kHealthyContacts},

    // A value of another kind
    {"ValueIsMissing", UnusualValue, ProcessFault::None,
     [](id) { return replying(@{@"error" : @0}); }, SucceedsWithoutLink, Succeeds, Nobody, 0},
    {"ValueIsNull", UnusualValue, ProcessFault::None, [](id) { return withValue([NSNull null]); },
     SucceedsWithoutLink, Succeeds, Nobody, 0},
    {"ValueIsANumber", UnusualValue, ProcessFault::None, [](id) { return withValue(@5); },
     SucceedsWithoutLink, Succeeds, Nobody, 0},
    {"ValueIsADictionary", UnusualValue, ProcessFault::None,
     [](id) { return withValue(@{@"name" : @"x"}); }, SucceedsWithoutLink, Succeeds, Nobody, 0},
    // Of an address book each element counts as a contact, here as one without name and address.
    {"ValueIsAnArrayOfOtherThings", UnusualValue, ProcessFault::None,
     [](id) {
       return withValue(@[ @1, [NSNull null], @"x", @[ @{} ] ]);
     },
     SucceedsWithoutLink, Succeeds, Nobody, 4},
    {"ValueIsAnArrayOfEmptyDictionaries", UnusualValue, ProcessFault::None,
     [](id) {
       return withValue(@[ @{}, @{} ]);
     },
     SucceedsWithoutLink, Succeeds, Nobody, 2},

    // Enormous
    {"ValueIsAnEnormousArray", Enormous, ProcessFault::None,
     [](id) -> NSDictionary * { return @{@"contacts" : @100000}; }, SucceedsWithoutLink, Succeeds,
     Nobody, 100000, [](id) -> NSDictionary * { return @{@"contacts" : @5000}; }, Column::Refresh},
    {"MessageIsAnEnormousText", Enormous, ProcessFault::None,
     [](id) -> NSDictionary * { return @{@"messageLength" : isThorough() ? @20000000 : @2000000}; },
     Refused, Refused, Nobody, 0,
     [](id) -> NSDictionary * { return @{@"messageLength" : @100000}; }, Column::Remove},
};

}  // namespace

const std::vector<Fault> &allFaults() {
  return kFaults;
}
