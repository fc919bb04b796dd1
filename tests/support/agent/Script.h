#pragma once

#import <Foundation/Foundation.h>

/// What the scripted agent does at one call: one entry of the script file.
///
/// The script is a JSON object from operation names ("getLinkForFile:::::") to an entry or a list
/// of entries; of a list each call takes the next, and the last one stays. A script with another
/// "number" than the one before begins its lists anew. Keys of an entry, all optional:
/// - "delay": seconds to wait first, in which the agent serves no other call, as one that hangs;
/// - "hold": the path of a file: the agent hangs likewise for as long as there is one
///   (tests/support/HeldReply.h);
/// - "serves": true to serve other calls meanwhile, unlike one that hangs;
/// - "recordReadsIn": a path; the "value" of the reply, a dictionary, appends each key that it is
///   asked for to that file, a line each.
/// - "die": "before" the operation returns (the process kills itself), "whenRead": it returns a
///   reply and dies at the first message to that, or "whenValueIsRead": it returns a reply and dies
///   at the first message to its "value", where that is a dictionary or an array;
/// - "raise": the name of an exception to raise instead of returning;
/// - "nil": true to return nil;
/// - "contacts": a number of generated contact records as the reply's "value";
/// - "linkLength": a number of characters of a generated link as the reply's "value";
/// - "messageLength": a refusal with an "errorMessage" of a number of characters;
/// - "reply": the reply.
/// Without an entry the agent returns an empty dictionary.
@interface Script : NSObject {
 @private
  NSString *_path;
  NSMutableDictionary *_callCounts;
  int _number;
}

- (id)initWithPath:(NSString *)path;

/// The entry for the next call of an operation; empty when the script has none. The file is read
/// anew each time, so that a test may change it between calls.
- (NSDictionary *)nextEntryForOperation:(NSString *)operation;

@end

/// Does what an entry says before the reply, and returns the reply, nil for none.
id actOut(NSDictionary *entry);
