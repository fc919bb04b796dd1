#pragma once

#import <Foundation/Foundation.h>

#include <functional>

namespace agent {

/// What a reader of contact records gets for each record: its "name" and its "primaryemail", nil
/// where the record has none, or has something else than a string there, or is no dictionary at
/// all. The strings are local and live until the call returns; retain what is to be kept.
using ContactVisitor = std::function<void(NSString *name, NSString *address)>;

/// Visits the records of an address book in the agent's order, exactly one visit a record.
///
/// records: the "value" of a getEmployeeAddressBook reply, usually an array in the agent's process.
/// Anything that is not an array has no records. Records are brought over ten thousand at a time in
/// a few messages, not one by one: asking each record for each field takes a minute for 100,000
/// contacts.
///
/// Answers false when the connection broke on the way: then the visits made so far are only a part
/// of the book. Blocks the calling thread; to be called on the thread that got the reply.
bool visitContactRecords(id records, const ContactVisitor &visit);

}  // namespace agent
