#pragma once

#import <Foundation/Foundation.h>

#include <functional>

namespace agent {

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

/// Visits the entries of an access list in the agent's order, exactly one visit an entry; an entry
/// that is no dictionary is visited as one without any value.
///
/// entries: the "value" of a getAccess:: reply; read as visitRecords reads (Records.h), with the
/// same answer.
bool visitAccessEntries(id entries, const AccessVisitor &visit);

}  // namespace agent
