#pragma once

#import <Foundation/Foundation.h>

#import "tests/support/agent/Script.h"

/// An agent that does what a script says and records each call. Implements every operation of
/// KRVProxy, and nothing else.
@interface ScriptedAgent : NSObject {
 @private
  Script *_script;
  NSString *_recordPath;
}

/// recordPath: gets one line of JSON for each call, written before the call does anything else:
/// {"operation": name, "arguments": [...], "pluginIsRegistered": whether the name
/// "ContextMenuPlugin" was registered at that moment}.
- (id)initWithScript:(Script *)script recordPath:(NSString *)recordPath;

@end
