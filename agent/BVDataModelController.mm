#import "agent/BVDataModelController.h"

#import <AppKit/AppKit.h>
#include <unistd.h>

#import "agent/AgentIdentity.h"
#import "agent/AgentRequest.h"
#import "agent/ConnectionAttempt.h"
#import "agent/ConnectionTimeouts.h"

namespace {

/// Asks the platform once for the agent's root object, without waiting longer than `seconds`.
/// former: what the last look-up found.
id<KRVProxy> lookedUpProxy(NSTimeInterval seconds, id<KRVProxy> former) {
  NSConnection *const known = agent::connectionOf(former);
  id const proxy = agent::boundingLookUp(agent::kConnectionName, seconds, known, [] {
    return [NSConnection rootProxyForConnectionWithRegisteredName:agent::kConnectionName host:nil];
  });
  // Saves a round trip for the signature of each operation. KRVOperations and not KRVProxy: only a
  // protocol that a class of this program adopts is known at run time, and GNUstep does not look
  // for a message in the protocols that a protocol adopts.
  agent::setProtocol(proxy, @protocol(KRVOperations));
  // A new connection has what was left of the attempt as its time-outs.
  agent::setTimeouts(agent::connectionOf(proxy),
                     {agent::kConnectionDeadlineSeconds, agent::kConnectionDeadlineSeconds});
  return proxy;
}

/// Every forwarder: the gate, then the same message to the proxy. `operation` takes the proxy.
template <class Operation>
NSDictionary *forward(BVDataModelController *controller, Operation operation) {
  if (![controller checkIfConnectionExists]) return nil;
  id<KRVProxy> const proxy = [controller krvAgentProxy];
  return agent::sendRequest(proxy, [&] { return operation(proxy); });
}

}  // namespace

@implementation BVDataModelController

@synthesize krvAgentProxy;
@synthesize krvAgentConnectionExisting;

- (id)init {
  if ((self = [super init])) {
    [self setKrvAgentConnectionExisting:NO];
    [self initializeKRVAgentProxy];
  }
  return self;
}

- (void)dealloc {
  [krvAgentProxy release];
  [super dealloc];
}

#pragma mark - Connection

- (BOOL)checkIfConnectionExists {
  if (![self checkIfAppIsRunning]) return NO;
  [self initializeKRVAgentProxy];
  return [self krvAgentConnectionExisting] && [self krvAgentProxy] != nil;
}

- (BOOL)checkIfAppIsRunning {
  for (NSRunningApplication *application in [[NSWorkspace sharedWorkspace] runningApplications]) {
    NSString *const identifier = [application bundleIdentifier];
    if (identifier != nil &&
        [identifier caseInsensitiveCompare:agent::kBundleIdentifier] == NSOrderedSame) {
      return YES;
    }
  }
  return NO;
}

- (void)launchMyAppIfNotRunning {
  if ([self checkIfAppIsRunning]) return;
  NSLog(@"Launching KRV Agent..");
  [[NSWorkspace sharedWorkspace] launchApplication:agent::kApplicationPath];
}

- (void)initializeKRVAgentProxy {
  const bool found = agent::attemptConnection(
      [] { return [NSDate timeIntervalSinceReferenceDate]; }, usleep,
      [self](double remainingSeconds) {
        @try {
          [self setKrvAgentProxy:lookedUpProxy(remainingSeconds, [self krvAgentProxy])];
          return [self krvAgentProxy] != nil;
        } @catch (NSException *) {
          // GNUstep raises when, for example, another process holds the
          // lock of the names for too long. The next try may succeed.
          return false;
        }
      });
  if (found) [self setKrvAgentConnectionExisting:YES];
}

#pragma mark - Operations

// clang-format off
- (NSDictionary *)getLinkForFile:(NSString *)pathOrId
                                :(BOOL)notifyOnDownload
                                :(BOOL)requireEmail
                                :(NSString *)maxDownloads
                                :(BOOL)isFileId {
  return forward(self, [&](id<KRVProxy> proxy) {
    return [proxy getLinkForFile:pathOrId:notifyOnDownload:requireEmail:maxDownloads:isFileId];
  });
}

- (NSDictionary *)getLinkForFolder:(NSString *)pathOrId
                                  :(BOOL)notifyOnDownload
                                  :(BOOL)requireEmail
                                  :(NSString *)maxDownloads
                                  :(BOOL)isFileId {
  return forward(self, [&](id<KRVProxy> proxy) {
    return [proxy getLinkForFolder:pathOrId:notifyOnDownload:requireEmail:maxDownloads:isFileId];
  });
}

- (NSDictionary *)sendFile:(NSString *)pathOrId
                          :(BOOL)notifyOnDownload
                          :(BOOL)requireEmail
                          :(NSString *)maxDownloads
                          :(NSString *)recipients
                          :(NSString *)subject
                          :(NSString *)message
                          :(BOOL)isFileId
                          :(BOOL)copyMe {
  return forward(self, [&](id<KRVProxy> proxy) {
    return [proxy sendFile:pathOrId:notifyOnDownload:requireEmail:maxDownloads
                          :recipients:subject:message:isFileId:copyMe];
  });
}

- (NSDictionary *)sendFolder:(NSString *)pathOrId
                            :(BOOL)notifyOnDownload
                            :(BOOL)requireEmail
                            :(NSString *)maxDownloads
                            :(NSString *)recipients
                            :(NSString *)subject
                            :(NSString *)message
                            :(BOOL)isFileId
                            :(BOOL)copyMe {
  return forward(self, [&](id<KRVProxy> proxy) {
    return [proxy sendFolder:pathOrId:notifyOnDownload:requireEmail:maxDownloads
                            :recipients:subject:message:isFileId:copyMe];
  });
}

- (NSDictionary *)grantAccess:(NSString *)userEmail
                             :(NSString *)pathOrId
                             :(BOOL)canDownload
                             :(BOOL)canUpload
                             :(BOOL)canDelete
                             :(BOOL)grantFlag
                             :(BOOL)isFileId
                             :(BOOL)isNewInvite
                             :(NSString *)message {
  return forward(self, [&](id<KRVProxy> proxy) {
    return [proxy grantAccess:userEmail:pathOrId:canDownload:canUpload:canDelete:grantFlag:isFileId
                             :isNewInvite:message];
  });
}

- (NSDictionary *)revokeAccess:(NSString *)userEmail:(NSString *)pathOrId:(BOOL)isFileId {
  return forward(
      self, [&](id<KRVProxy> proxy) { return [proxy revokeAccess:userEmail:pathOrId:isFileId]; });
}

- (NSDictionary *)getAccess:(NSString *)pathOrId:(BOOL)isFileId {
  return forward(self, [&](id<KRVProxy> proxy) { return [proxy getAccess:pathOrId:isFileId]; });
}

- (NSDictionary *)getUserInfo:(NSString *)userEmail:(BOOL)userInfoFlag {
  return forward(self,
                 [&](id<KRVProxy> proxy) { return [proxy getUserInfo:userEmail:userInfoFlag]; });
}

- (NSDictionary *)getEmployeeAddressBook {
  return forward(self, [&](id<KRVProxy> proxy) { return [proxy getEmployeeAddressBook]; });
}

- (NSDictionary *)getAddressBook:(id)query {
  return forward(self, [&](id<KRVProxy> proxy) { return [proxy getAddressBook:query]; });
}

- (id)getActiveAccount {
  if (![self checkIfConnectionExists]) return nil;
  id<KRVProxy> const proxy = [self krvAgentProxy];
  return agent::nilOnException(
      [&] { return agent::withoutTimeout(proxy, [&] { return [proxy getActiveAccount]; }); });
}
// clang-format on

@end
