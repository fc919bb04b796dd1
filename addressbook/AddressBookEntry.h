#pragma once

#import <Foundation/Foundation.h>

#import "addressbook/EntryFormat.h"

/// One entry of the address book that recipient completion offers: a name followed by the address.
///
/// - personName: "First Last" or "Last, First", as the agent has it. nil is written as the
///   platform writes nil in a format.
/// - address: used as it is; nil as above.
/// - lastCommaFirstFormat: the format for names of the second form, with three arguments in the
///   order first name, last name, address (the localized text of
///   "personNameinAddressbookFormatKey").
///
/// A name with exactly one ", " is read as last name and first name. Of any other name the part
/// before the first ", " is used, the whole name when there is none. Commas, semicolons and blanks
/// are removed from each part, because they would end a recipient in the token field; so
/// "John Doe" becomes one word in front of the address, while "Doe, John" keeps its two.
/// Autoreleased; any thread.
NSString *addressBookEntry(NSString *personName, NSString *address,
                           const EntryFormat &lastCommaFirstFormat);

/// What a finished token stands for: the text between the first angle bracket and the next in
/// "Name<address>", nil when there is no bracket (the token
/// then stands for what was typed). Autoreleased; any thread.
NSString *addressOfEntry(NSString *editingString);
