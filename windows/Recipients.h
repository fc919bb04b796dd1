#pragma once

#import <AppKit/AppKit.h>

/// Recipient entry, as the send tab and the invite tab have it. Main thread; results are
/// autoreleased.

/// Lets "," and ";" end a token in the field.
void setTokenizingCharacters(NSTokenField *field);

/// The entries of the application's address book that begin with the substring, ignoring case, and
/// then those that contain it elsewhere; both in the order of the book. Empty when there is none.
NSArray *completions(NSString *substring);

/// What a finished token stands for: the text between the first angle bracket and the next in
/// "Name<address>", nil when there is no bracket (the token then stands for what was typed).
NSString *addressOfEntry(NSString *editingString);

/// Whether the address as a whole matches the pattern of addresses that the service takes: one "@",
/// and a top-level domain of two to four letters. Nothing is trimmed. NO for nil.
BOOL isValidAddress(NSString *address);

/// The recipients as entered, split at each ",". Nothing is trimmed or dropped: an empty field
/// gives one empty recipient.
NSArray *recipientsIn(NSString *entered);

/// The first recipient that is no valid address, nil when all are.
NSString *firstInvalidRecipient(NSString *entered);

/// The alert for one that is not; a blank one has a text of its own. With an OK button.
NSAlert *invalidRecipientAlert(NSString *recipient);
