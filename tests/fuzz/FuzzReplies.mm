#import "agent/ResultDictionary.h"

#include "tests/fuzz/Input.h"
#include "tests/fuzz/Target.h"

namespace {

bool isString(id object) {
  return [object isKindOfClass:[NSString class]];
}
bool isNumber(id object) {
  return [object isKindOfClass:[NSNumber class]];
}

bool isSame(id one, id other) {
  return one == other || [one isEqual:other];
}

/// All entries that are under a string.
NSDictionary *namedEntriesOf(NSDictionary *dictionary) {
  NSMutableDictionary *const entries = [NSMutableDictionary dictionary];
  for (id key in dictionary) {
    if (isString(key)) [entries setObject:[dictionary objectForKey:key] forKey:key];
  }
  return entries;
}

NSDictionary *expectedCopyOf(NSDictionary *reply) {
  NSMutableDictionary *const copy = [NSMutableDictionary dictionary];
  for (NSString *key in @[ @"error", @"value", @"errorMessage" ]) {
    if ([reply objectForKey:key] != nil) [copy setObject:[reply objectForKey:key] forKey:key];
  }
  return [copy count] > 0 ? copy : namedEntriesOf(reply);
}

void checkReading(NSDictionary *copy) {
  using agent::ReplyKind;
  const ReplyKind link = agent::kindOfLinkReply(copy);
  const ReplyKind action = agent::kindOfActionReply(copy);
  id const error = [copy objectForKey:@"error"];
  const bool isReadable = isString(error) || isNumber(error);
  fuzz::promise((link == ReplyKind::Unreachable) == ([copy count] == 0) &&
                    (action == ReplyKind::Unreachable) == ([copy count] == 0),
                "unreachable is what is empty");
  fuzz::promise(link != ReplyKind::Succeeded || (isReadable && action == ReplyKind::Succeeded),
                "a link that succeeded has a readable error that says so");
  fuzz::promise(action != ReplyKind::Refused || (isReadable && link == ReplyKind::Refused),
                "an action that was refused has a readable error that says so");
  fuzz::promise((agent::errorText(copy) != nil) == isReadable, "a readable error has a text");
  fuzz::promise(isSame(agent::errorMessage(copy), isString([copy objectForKey:@"errorMessage"])
                                                      ? [copy objectForKey:@"errorMessage"]
                                                      : nil),
                "a message is a string");
}

}  // namespace

/// input: a reply in the notation of objectFrom.
void fuzz::Replies(std::string_view input) {
  id const reply = objectFrom(input);
  const bool isDictionary = [reply isKindOfClass:[NSDictionary class]];
  NSDictionary *const copy = agent::localCopyOfReply(reply);
  promise(isSame(copy, isDictionary ? expectedCopyOf(reply) : nil),
          "a copy has the three keys, or all of a reply without them");
  promise([agent::localCopyOfDictionary(reply)
              isEqual:isDictionary ? namedEntriesOf(reply) : [NSDictionary dictionary]],
          "the entries are those under a string");
  checkReading(copy);
  for (NSString *key in copy) {
    id const value = [copy objectForKey:key];
    promise(isSame(agent::stringIn(copy, key), isString(value) ? value : nil),
            "a string is a string");
    const BOOL expected = (isString(value) || isNumber(value)) && [value boolValue];
    promise(agent::flagIn(copy, key) == expected, "a flag is a number's or a string's truth");
  }
}
