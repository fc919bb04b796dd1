#pragma once

#import "agent/Records.h"

#include <optional>

@class SharedWith;

/// What a person may do with a shared folder. Nobody can be given less than reading.
enum class AccessLevel { ReadOnly, ReadWrite };

/// The level's title in the user's language, as the pop-ups show it. Autoreleased; any thread.
NSString *titleOf(AccessLevel level);

/// The level with this title; reading only for any other text and for nil.
AccessLevel levelWithTitle(NSString *title);

/// What the list calls a person: the first name, a blank and the last name, each capitalized, or
/// the address when the first name is empty or nil. Autoreleased; any thread.
NSString *displayName(NSString *firstName, NSString *lastName, NSString *address);

/// Which entries of an access list the permissions tab shows, and how. Any thread.

/// What the person may do, nothing for an entry that is not listed: a grantee that is no person,
/// the owner, and anybody who may not download. Somebody who may write in part counts as a reader.
std::optional<AccessLevel> listedLevel(const agent::AccessEntry &entry);

/// The row for an entry, nil when it is not listed. Autoreleased.
SharedWith *rowFor(const agent::AccessEntry &entry);

/// Gives a row a level: its title and its number.
void setLevel(SharedWith *row, AccessLevel level);
