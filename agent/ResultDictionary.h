#pragma once

#import <Foundation/Foundation.h>

/// Reading the agent's replies. A reply comes from another process and may contain anything: a
/// value of the wrong class counts as absent.
namespace agent {

/// Keys of a result dictionary.
inline NSString *const kErrorKey = @"error";                // number: 0 on success
inline NSString *const kValueKey = @"value";                // the payload on success
inline NSString *const kErrorMessageKey = @"errorMessage";  // string: the service's explanation

/// A local copy of a reply, so that reading it later is no round trip and cannot fail; nil for nil
/// and for anything that is not a dictionary. A result dictionary is copied with its three keys and
/// nothing else; any other dictionary with all its entries. Strings and numbers are local in the
/// copy; arrays and dictionaries below "value" stay in the agent's process (Records.h reads those).
/// Raises a platform exception when the connection breaks: call it through AgentRequest.h.
/// Autoreleased.
NSDictionary *localCopyOfReply(id reply);

/// All entries of a dictionary that may be in another process, as a local dictionary; empty for nil
/// and for anything that is not a dictionary. Raises as localCopyOfReply does. Autoreleased.
NSDictionary *localCopyOfDictionary(id dictionary);

/// The text forms of the entries of these keys, in two round trips: for entries that are strings.
/// nil for nil and for anything that is not a dictionary, and for texts with control characters
/// that no text has (U+001E, U+001F). Raises as localCopyOfReply does. Autoreleased.
NSDictionary *localCopyOfTexts(NSArray *keys, id dictionary);

/// Tells a distant object of which protocol its messages are, which saves a round trip for the
/// signature of each. Does nothing for any other object, other proxies included.
void setProtocol(id object, Protocol *protocol);

/// What a reply means.
enum class ReplyKind {
  Unreachable,  // no reply or an empty one: the agent or the service could not be reached
  Refused,      // the service refused the operation; errorMessage() says why
  Succeeded,
};

/// The meaning of a reply to a link operation: success is when the text form of "error" equals "0",
/// so a reply without a readable "error" is a refusal.
ReplyKind kindOfLinkReply(NSDictionary *reply);

/// The meaning of a reply to a send, grant or revoke operation: failure is when "error" read as a
/// boolean is true, so a reply without a readable "error" is a success.
ReplyKind kindOfActionReply(NSDictionary *reply);

/// "error" as text: a number's text form, a string as it is (some agents answer "0"); nil when it
/// is neither.
NSString *errorText(NSDictionary *reply);

/// "errorMessage", nil when it is not a string.
NSString *errorMessage(NSDictionary *reply);

/// The value of `key` read as a boolean, as flagOf does.
BOOL flagIn(NSDictionary *entry, NSString *key);

/// value read as a boolean: a number's or a string's, NO for anything else and for nil.
BOOL flagOf(id value);

/// The string that stands under `key`, nil for anything else.
NSString *stringIn(NSDictionary *entry, NSString *key);

/// object when it is a string of this process, otherwise nil. A proxy may claim any class.
NSString *stringOrNil(id object);

}  // namespace agent
