#import <Foundation/Foundation.h>
#import <objc/runtime.h>

#import "platform/gnustep/connections/ConnectionTimeouts.h"
#import "platform/gnustep/runtime/MethodReplacement.h"

@interface NSDistributedNotificationCenter (PlatformPrivate)
- (void)_connect;
@end

namespace {

constinit platform::ReplacedMethod<void()> platformConnect;
constinit platform::ReplacedMethod<void(id, SEL, NSString *, NSString *,
                                        NSNotificationSuspensionBehavior)>
    platformAddObserver;
constinit platform::ReplacedMethod<void(id, NSString *, NSString *)> platformRemoveObserver;
constinit platform::ReplacedMethod<void(NSString *, NSString *, NSDictionary *, BOOL)> platformPost;

NSString *const kServerName = @"GDNCServer";

constexpr NSTimeInterval kReplySeconds = 2;
/// A server that did not reply is not asked again for so long, because every activation and
/// deactivation of the application would wait for it.
constexpr NSTimeInterval kSuspensionSeconds = 60;

NSTimeInterval suspendedUntil = 0;

NSTimeInterval now() {
  return [[NSProcessInfo processInfo] systemUptime];
}

/// Whether a server has registered its name and does not reply. The platform would try to start
/// another one and wait for it.
bool hangs() {
  if ([[NSMessagePortNameServer sharedInstance] portForName:kServerName onHost:@""] == nil) {
    return false;
  }
  return
      [NSConnection
          rootProxyForConnectionWithRegisteredName:kServerName
                                              host:@""
                                   usingNameServer:[NSMessagePortNameServer sharedInstance]] == nil;
}

/// Only errors of the caller are raised: there is nothing that it could do about a server that
/// fails.
template <class Step>
void ignoringServerFailure(Step step) {
  @try {
    step();
  } @catch (NSException *exception) {
    if ([[exception name] isEqualToString:NSInvalidArgumentException]) @throw;
    if (now() >= suspendedUntil) suspendedUntil = now() + kSuspensionSeconds;
  }
}

}  // namespace

/// Notifications are lost when the server hangs, as on the Mac, where neither posting nor observing
/// blocks or raises an exception. The platform blocks for ever, or raises one out of whatever has
/// activated or hidden the application.
@implementation NSDistributedNotificationCenter (Timeouts)

+ (void)load {
  platformConnect.install(self, @selector(_connect), @selector(connectWithTimeout));
  platformAddObserver.install(self, @selector(addObserver:selector:name:object:suspensionBehavior:),
                              @selector(tryToAddObserver:selector:name:object:suspensionBehavior:));
  platformRemoveObserver.install(self, @selector(removeObserver:name:object:),
                                 @selector(tryToRemoveObserver:name:object:));
  platformPost.install(self, @selector(postNotificationName:object:userInfo:deliverImmediately:),
                       @selector(tryToPostNotificationName:object:userInfo:deliverImmediately:));
}

- (void)connectWithTimeout {
  static const Ivar remote =
      class_getInstanceVariable([NSDistributedNotificationCenter class], "_remote");
  if (object_getIvar(self, remote) == nil) {
    const ConnectionTimeouts bounded(kReplySeconds);
    if (now() < suspendedUntil || hangs()) {
      [NSException raise:NSPortTimeoutException format:@"The server does not answer"];
    }
    platformConnect(self, _cmd);
  }
}

- (void)tryToAddObserver:(id)observer
                selector:(SEL)selector
                    name:(NSString *)name
                  object:(NSString *)object
      suspensionBehavior:(NSNotificationSuspensionBehavior)behavior {
  ignoringServerFailure(
      [&] { platformAddObserver(self, _cmd, observer, selector, name, object, behavior); });
}

- (void)tryToRemoveObserver:(id)observer name:(NSString *)name object:(NSString *)object {
  ignoringServerFailure([&] { platformRemoveObserver(self, _cmd, observer, name, object); });
}

- (void)tryToPostNotificationName:(NSString *)name
                           object:(NSString *)object
                         userInfo:(NSDictionary *)userInfo
               deliverImmediately:(BOOL)immediately {
  ignoringServerFailure([&] { platformPost(self, _cmd, name, object, userInfo, immediately); });
}

@end
