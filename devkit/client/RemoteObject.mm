#import "devkit/client/RemoteObject.h"

#include <string>

#include "devkit/base/LeakCheckPause.h"
#include "platform/gnustep/connections/TemporaryFolder.h"

namespace devkit {
namespace {

/// Between two look-ups of a name that is not registered yet; there is no notification of that.
constexpr NSTimeInterval kPauseSeconds = 0.05;

std::string text(NSString *string) {
  const char *bytes = [string UTF8String];
  return bytes ? bytes : "";
}

/// nil on any failure; the reasons are distinguished afterwards.
id rootProxy(NSString *name) {
  @try {
    return [NSConnection rootProxyForConnectionWithRegisteredName:name host:nil];
  } @catch (NSException *) {
    // The process ended during the look-up, or the folder of the names is locked for longer than
    // the platform waits. Both count as a name that is not registered.
    return nil;
  }
}

bool isRegistered(NSString *name) {
  @try {
    return [[NSMessagePortNameServer sharedInstance] portForName:name onHost:nil] != nil;
  } @catch (NSException *) {
    return false;
  }
}

}  // namespace

std::variant<id, Failure> lookUp(NSString *name, Protocol *protocol, const char *who,
                                 const Timeouts &timeouts) {
  // Without a folder for its connections the platform ends the program, and in one of another user
  // it might connect to that user's process.
  const auto folder = platform::temporaryFolder();
  if (!folder.problem.empty())
    return Failure{Exit::NotRunning, folder.problem + "; no connection in it could be trusted"};
  // The platform's own time-out is unlimited. New connections copy it from the default connection.
  NSConnection *defaults = nil;
  {
    [[maybe_unused]] const LeakCheckPause whileThePlatformSetsItselfUp;
    defaults = [NSConnection defaultConnection];
  }
  const NSTimeInterval endless = [defaults replyTimeout];
  [defaults setReplyTimeout:timeouts.timeout.count()];
  [defaults setRequestTimeout:timeouts.timeout.count()];

  NSDate *deadline = [NSDate dateWithTimeIntervalSinceNow:timeouts.wait.count()];
  // In this order: a name registered between the two would look like one that does not reply.
  bool wasRegistered = isRegistered(name);
  id proxy = rootProxy(name);
  while (!proxy && !wasRegistered && [deadline timeIntervalSinceNow] > 0) {
    [NSThread sleepForTimeInterval:kPauseSeconds];
    wasRegistered = isRegistered(name);
    proxy = rootProxy(name);
  }
  if (!proxy) {
    const char *problem = isRegistered(name) ? " does not answer" : " is not running";
    return Failure{Exit::NotRunning, std::string(who) + problem};
  }

  [[proxy connectionForProxy] setReplyTimeout:endless];
  [[proxy connectionForProxy] setRequestTimeout:endless];
  [proxy setProtocolForProxy:protocol];
  return proxy;
}

Failure failureOf(NSException *exception, id proxy, const char *who) {
  NSString *name = [exception name];
  const auto detail = ": " + text([exception reason]);
  if ([name isEqualToString:NSInvalidReceivePortException] ||
      [name isEqualToString:NSPortTimeoutException] || ![[proxy connectionForProxy] isValid])
    return {Exit::ApplicationEnded, std::string(who) + " went away during the call" + detail};
  // The other side has no such method, or one with other arguments.
  if ([name isEqualToString:NSInvalidArgumentException])
    return {Exit::NotOffered, std::string(who) + " does not offer this operation"};
  return {Exit::Failed, std::string(who) + " failed with " + text(name) + detail};
}

}  // namespace devkit
