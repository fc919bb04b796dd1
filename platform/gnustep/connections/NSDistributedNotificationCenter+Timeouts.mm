#import <Foundation/Foundation.h>
#import <objc/runtime.h>

#import "platform/gnustep/connections/ConnectionTimeouts.h"
#import "platform/gnustep/runtime/OwnMethod.h"

@interface NSDistributedNotificationCenter (PlatformPrivate)
- (void)_connect;
@end

namespace {

NSString *const kServerName = @"GDNCServer";

constexpr NSTimeInterval kReplySeconds = 2;
/// How long a server that did not answer is left alone: every activation of the application and
/// every deactivation would wait for it again.
constexpr NSTimeInterval kSuspensionSeconds = 60;

NSTimeInterval suspendedUntil = 0;

NSTimeInterval now() {
  return [[NSProcessInfo processInfo] systemUptime];
}

/// A server that has registered its name and hangs: the platform would try to start another one,
/// and wait for that.
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

/// What goes wrong between here and the server, unlike what the caller does wrong, is nothing that
/// he could do anything about.
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

/// Distributed notifications that a hanging server does not take are lost, as on the Mac: there
/// neither posting nor observing waits for it or raises an exception. The platform waits for ever,
/// or raises one out of whatever has activated or hidden the application.
// Replacing the platform's own methods is the point.
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"
@implementation NSDistributedNotificationCenter (Timeouts)

- (void)_connect {
  static const auto own =
      ownMethod<void (*)(id, SEL)>([NSDistributedNotificationCenter class], _cmd);
  static const Ivar remote =
      class_getInstanceVariable([NSDistributedNotificationCenter class], "_remote");
  if (object_getIvar(self, remote) == nil) {
    const ConnectionTimeouts bounded(kReplySeconds);
    if (now() < suspendedUntil || hangs()) {
      [NSException raise:NSPortTimeoutException format:@"The server does not answer"];
    }
    own(self, _cmd);
  }
}

- (void)addObserver:(id)observer
              selector:(SEL)selector
                  name:(NSString *)name
                object:(NSString *)object
    suspensionBehavior:(NSNotificationSuspensionBehavior)behavior {
  static const auto own = ownMethod<void (*)(id, SEL, id, SEL, NSString *, NSString *,
                                             NSNotificationSuspensionBehavior)>(
      [NSDistributedNotificationCenter class], _cmd);
  ignoringServerFailure([&] { own(self, _cmd, observer, selector, name, object, behavior); });
}

- (void)removeObserver:(id)observer name:(NSString *)name object:(NSString *)object {
  static const auto own = ownMethod<void (*)(id, SEL, id, NSString *, NSString *)>(
      [NSDistributedNotificationCenter class], _cmd);
  ignoringServerFailure([&] { own(self, _cmd, observer, name, object); });
}

- (void)postNotificationName:(NSString *)name
                      object:(NSString *)object
                    userInfo:(NSDictionary *)userInfo
          deliverImmediately:(BOOL)immediately {
  static const auto own =
      ownMethod<void (*)(id, SEL, NSString *, NSString *, NSDictionary *, BOOL)>(
          [NSDistributedNotificationCenter class], _cmd);
  ignoringServerFailure([&] { own(self, _cmd, name, object, userInfo, immediately); });
}

@end
