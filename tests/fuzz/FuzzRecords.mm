#include <vector>

#import "agent/Records.h"
#include "tests/fuzz/Input.h"
#include "tests/fuzz/Target.h"

namespace {

bool isSame(id one, id other) {
  return one == other || [one isEqual:other];
}

id valueIn(id record, NSString *key) {
  return [record isKindOfClass:[NSDictionary class]] ? [record objectForKey:key] : nil;
}

NSString *stringIn(id record, NSString *key) {
  id const value = valueIn(record, key);
  return [value isKindOfClass:[NSString class]] ? value : nil;
}

BOOL flagIn(id record, NSString *key) {
  id const value = valueIn(record, key);
  const bool isReadable =
      [value isKindOfClass:[NSString class]] || [value isKindOfClass:[NSNumber class]];
  return isReadable && [value boolValue];
}

/// The records of an array; none of anything else.
NSArray *recordsOf(id object) {
  return [object isKindOfClass:[NSArray class]] ? object : [NSArray array];
}

void checkContacts(id object) {
  NSArray *const records = recordsOf(object);
  NSUInteger visits = 0;
  const bool isComplete =
      agent::visitContactRecords(object, [&](NSString *name, NSString *address) {
        id const record = visits < [records count] ? [records objectAtIndex:visits] : nil;
        ++visits;
        fuzz::promise(isSame(name, stringIn(record, @"name")) &&
                          isSame(address, stringIn(record, @"primaryemail")),
                      "a contact is what it is when it is read by itself");
      });
  fuzz::promise(isComplete && visits == [records count], "each contact is visited once");
}

bool isAsReadSingly(const agent::AccessEntry &entry, id record) {
  return isSame(entry.type, stringIn(record, @"type")) &&
         entry.canDownload == flagIn(record, @"candownload") &&
         entry.canUpload == flagIn(record, @"canupload") &&
         entry.canDelete == flagIn(record, @"candelete") &&
         entry.isOwner == flagIn(record, @"isowner") &&
         isSame(entry.firstName, stringIn(record, @"userfname")) &&
         isSame(entry.lastName, stringIn(record, @"userlname")) &&
         isSame(entry.address, stringIn(record, @"useremail"));
}

void checkAccess(id object) {
  NSArray *const records = recordsOf(object);
  NSUInteger visits = 0;
  const bool isComplete = agent::visitAccessEntries(object, [&](const agent::AccessEntry &entry) {
    id const record = visits < [records count] ? [records objectAtIndex:visits] : nil;
    ++visits;
    fuzz::promise(isAsReadSingly(entry, record),
                  "an access entry is what it is when it is read by itself");
  });
  fuzz::promise(isComplete && visits == [records count], "each access entry is visited once");
}

}  // namespace

/// input: the value of a reply in the notation of objectFrom.
void fuzz::Records(std::string_view input) {
  id const object = objectFrom(input);
  checkContacts(object);
  checkAccess(object);
}
