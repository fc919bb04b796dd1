#pragma once

#import <AppKit/AppKit.h>

/// The recipients of the send tab and of the invite tab. Main thread; results are autoreleased.

/// Lets "," and ";" end a token in the field.
void setTokenizingCharacters(NSTokenField *field);

/// Whether the whole address matches the pattern of addresses that the service accepts: one "@",
/// and a top-level domain of two to four letters. Nothing is trimmed. NO for nil.
BOOL isValidAddress(NSString *address);

/// What was entered, split at each ",". Nothing is trimmed or dropped: an empty field gives one
/// empty recipient.
NSArray *recipientsIn(NSString *entered);

/// The first recipient that is no valid address, nil when all are.
NSString *firstInvalidRecipient(NSString *entered);

/// The alert for a recipient that is not a valid address, with an OK button. An empty recipient has
/// a text of its own.
NSAlert *invalidRecipientAlert(NSString *recipient);
