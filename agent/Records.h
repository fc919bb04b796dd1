#pragma once

#import <Foundation/Foundation.h>

#include <functional>
#include <vector>

namespace agent {

/// What a reader of records gets for each record: the values of the keys that it asked for, in
/// their order. Each is a string or a number of this process, or nil where the record has none, or
/// has something else there, or is no dictionary at all. A
/// number keeps its truth value but not all of its digits, because it travels as text. The values
/// live until the call returns; retain what is to be kept.
using RecordVisitor = std::function<void(const std::vector<id> &values)>;

/// Visits the records of an array in the agent's order, exactly one visit a record.
///
/// records: the "value" of a reply, usually an array in the agent's process. Anything that is not
/// an array has no records. Records are fetched ten thousand at a time in a few messages, not one
/// by one: asking each record for each field takes a minute for 100,000 contacts.
///
/// Returns false when the connection broke before the last record: then only a part of the array
/// has been visited. Blocks the calling thread; to be called on the thread that got the reply.
bool visitRecords(id records, const std::vector<NSString *> &keys, const RecordVisitor &visit);

/// Gets the "name" and the "primaryemail" of each contact, nil where the record has none, or has
/// something else than a string there, or is no dictionary at all. The strings are local and live
/// until the call returns; retain what is to be kept.
using ContactVisitor = std::function<void(NSString *name, NSString *address)>;

/// Visits the contacts of an address book. records: the "value" of a getEmployeeAddressBook reply;
/// read as visitRecords reads, with the same answer.
bool visitContactRecords(id records, const ContactVisitor &visit);

/// One entry of a folder's access list. A string is nil where the entry has none, or has something
/// else than a string there; a flag is what stands there read as a boolean, NO for nothing.
struct AccessEntry {
  NSString *type = nil;  // what kind of grantee; "user" is a person
  BOOL canDownload = NO;
  BOOL canUpload = NO;
  BOOL canDelete = NO;
  BOOL isOwner = NO;
  NSString *firstName = nil;
  NSString *lastName = nil;
  NSString *address = nil;
};

/// Gets each entry. The strings are local and live until the call returns; retain what is to be
/// kept.
using AccessVisitor = std::function<void(const AccessEntry &entry)>;

/// Visits the entries of an access list; an entry that is no dictionary is visited as one without
/// any value. entries: the "value" of a getAccess:: reply; read as visitRecords reads, with the
/// same answer.
bool visitAccessEntries(id entries, const AccessVisitor &visit);

}  // namespace agent
