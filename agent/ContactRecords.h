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
/// records: the "value" of a getEmployeeAddressBook reply; read as visitRecords reads (Records.h),
/// with the same answer.
bool visitContactRecords(id records, const ContactVisitor &visit);

}  // namespace agent
