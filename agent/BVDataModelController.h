#import <Foundation/Foundation.h>

#import "agent/KRVProxy.h"

/// One exchange with the agent: finds its connection, checks it, forwards one operation.
///
/// Every operation makes one of its own (alloc, init, autorelease) and uses it once, on one thread.
/// Everything here blocks the calling thread.
@interface BVDataModelController : NSObject <KRVOperations> {
 @private
  id<KRVProxy> krvAgentProxy;
  BOOL krvAgentConnectionExisting;
}

/// The agent's root object as the last connection attempt found it, nil when it found none.
@property (retain) id<KRVProxy> krvAgentProxy;

/// YES once an attempt has succeeded. Only init sets it to NO: whether there is a connection now is
/// what checkIfConnectionExists answers.
@property (assign) BOOL krvAgentConnectionExisting;

/// Makes one connection attempt, whether or not the agent is running: without an agent this takes
/// the whole 15 seconds, and the new instance has no proxy.
- (id)init;

/// The gate in front of every forwarded operation: NO at once when the agent is not among the
/// running applications; otherwise makes another attempt and answers whether it found the agent.
- (BOOL)checkIfConnectionExists;

/// Whether an application with the agent's bundle identifier (in any letter case) is running.
- (BOOL)checkIfAppIsRunning;

/// Starts the agent application if it is not running, and does not wait for it. Nothing in this
/// application calls it: a missing agent is reported to the user and not started unasked.
- (void)launchMyAppIfNotRunning;

/// One connection attempt: looks the agent's name up every 0.1 s until it is there or 15 s have
/// passed, and keeps what it found as krvAgentProxy. Platform exceptions (NSException) count as
/// failed tries; anything else that is thrown passes on.
- (void)initializeKRVAgentProxy;

// Each operation of KRVOperations runs checkIfConnectionExists and answers nil when that says NO;
// otherwise it sends the same message to krvAgentProxy, with the arguments unchanged, and answers
// the agent's reply (as a local copy, see ResultDictionary.h), or nil when the connection broke.

@end
