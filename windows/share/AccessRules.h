#pragma once

#import "agent/AccessEntries.h"
#import "windows/share/AccessLevel.h"

#include <optional>

@class SharedWith;

/// Which entries of an access list the permissions tab shows, and how. Any thread.

/// What the person may do, nothing for an entry that is not listed: a grantee that is no person,
/// the owner, and anybody who may not download. Somebody who may write in part counts as a reader.
std::optional<AccessLevel> listedLevel(const agent::AccessEntry &entry);

/// The row for an entry, nil when it is not listed. Autoreleased.
SharedWith *rowFor(const agent::AccessEntry &entry);

/// Gives a row a level: its title and its number.
void setLevel(SharedWith *row, AccessLevel level);
