#pragma once

#import <AppKit/AppKit.h>

/// Recipient entry, as the send tab and the invite tab have it. Main thread; results are
/// autoreleased.

/// Lets "," and ";" end a token in the field.
void setTokenizingCharacters(NSTokenField *field);

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
