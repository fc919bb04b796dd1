#pragma once

#import "agent/Records.h"

#include <optional>

@class SharedWith;

/// What a person may do with a shared folder. Nobody can be given less than reading.
enum class AccessLevel { ReadOnly, ReadWrite };

/// The level's title in the user's language, as the pop-ups show it. Autoreleased; any thread.
NSString *titleOf(AccessLevel level);

/// The level with this title; ReadOnly for any other text and for nil.
AccessLevel levelWithTitle(NSString *title);

/// The name in the list: the first name, a space and the last name, each capitalized, or the
/// address when the first name is empty or nil. Autoreleased; any thread.
NSString *displayName(NSString *firstName, NSString *lastName, NSString *address);

/// Which entries of an access list the permissions tab shows, and how. Any thread.

/// The level of an entry; nullopt for an entry that is not listed: a grantee that is no person, the
/// owner, and whoever may not download. An entry with only part of the write access is ReadOnly.
std::optional<AccessLevel> listedLevel(const agent::AccessEntry &entry);

/// The row for an entry, nil when it is not listed. Autoreleased.
SharedWith *rowFor(const agent::AccessEntry &entry);

/// Sets a row's level: its title and its number.
void setLevel(SharedWith *row, AccessLevel level);
