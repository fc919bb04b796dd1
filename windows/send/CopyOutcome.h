#pragma once

#import <Foundation/Foundation.h>

/// How the copying of a link can end.
enum class CopyOutcome { Copied, Refused, NoReply };

/// reply: the agent's answer, nil for none; clipboardStatus: what pasteToClipboard: answered to it.
/// No reply and an empty one come first, whatever the status says.
CopyOutcome outcomeOfCopy(NSDictionary *reply, NSString *clipboardStatus);
