#pragma once

#import <Foundation/Foundation.h>

/// What a person may do with a shared folder. Nobody can be given less than reading.
enum class AccessLevel { ReadOnly, ReadWrite };

/// The level's title in the user's language, as the pop-ups show it. Autoreleased; any thread.
NSString *titleOf(AccessLevel level);

/// The level with this title; reading only for any other text and for nil.
AccessLevel levelWithTitle(NSString *title);

/// What the list calls a person: the first name, a blank and the last name, each capitalized, or
/// the address when the first name is empty or nil. Autoreleased; any thread.
NSString *displayName(NSString *firstName, NSString *lastName, NSString *address);
