#import "platform/gnustep/pasteboard/NSPasteboard+ServerConnection.h"

#import <GNUstepGUI/GSPasteboardServer.h>

#import "platform/gnustep/connections/ConnectionTimeouts.h"
#import "platform/gnustep/runtime/MethodReplacement.h"

namespace {

/// The same time-out as the platform's.
constexpr NSTimeInterval kReplySeconds = 2;
/// Long enough to send megabytes.
constexpr NSTimeInterval kRequestSeconds = 10;
constexpr NSTimeInterval kStartSeconds = 5;
constexpr NSTimeInterval kPollSeconds = 0.02;

constinit platform::ReplacedMethod<id()> platformConnect;

id server = nil;  // retained; nil when there is no connection
bool isConnecting = false;

/// Whether a server has registered its name, even if it hangs.
bool isRunning() {
  NSPortNameServer *const names = [NSPortNameServer systemDefaultPortNameServer];
  return [names portForName:PBSNAME onHost:@""] != nil;
}

/// The server, nil when there is none or when it does not reply.
id lookUp() {
  @try {
    const ConnectionTimeouts bounded(kReplySeconds);
    return isRunning() ? [NSConnection rootProxyForConnectionWithRegisteredName:PBSNAME host:@""]
                       : nil;
  } @catch (NSException *exception) {
    return nil;  // for example when a process has died with the lock for names
  }
}

/// Starts a server, which exits when no program owns a pasteboard any more. Of two that are started
/// one exits again. False where none is installed.
bool launch() {
  NSString *const tool = [NSTask launchPathForTool:@"gpbs"];
  if (tool == nil) return false;
  [NSTask launchedTaskWithLaunchPath:tool arguments:[NSArray arrayWithObject:@"--auto"]];
  return true;
}

/// Starts a server and waits until it has registered its name.
bool start() {
  @try {
    if (!launch()) return false;
    NSDate *const limit = [NSDate dateWithTimeIntervalSinceNow:kStartSeconds];
    while (!isRunning()) {
      if ([limit timeIntervalSinceNow] < 0) return false;
      [NSThread sleepForTimeInterval:kPollSeconds];
    }
    return true;
  } @catch (NSException *exception) {
    return false;
  }
}

/// The server exits, and the clipboard is lost, with the last program that has owned a pasteboard.
/// So this program owns one with a unique name.
void keepAlive() {
  [[NSPasteboard pasteboardWithUniqueName] declareTypes:[NSArray array]
                                                  owner:[[[NSObject alloc] init] autorelease]];
}

void use(id found) {
  server = [found retain];
  NSConnection *const connection = [found connectionForProxy];
  [connection enableMultipleThreads];
  [connection setReplyTimeout:kReplySeconds];
  [connection setRequestTimeout:kRequestSeconds];
  [found setProtocolForProxy:objc_getProtocol("GSPasteboardSvr")];
  [[NSNotificationCenter defaultCenter] addObserver:[NSPasteboard class]
                                           selector:@selector(serverConnectionDied:)
                                               name:NSConnectionDidDieNotification
                                             object:connection];
  keepAlive();
}

id connectToServer(id cls, SEL selector) {
  // For a server on another machine.
  if ([[[NSUserDefaults standardUserDefaults] stringForKey:@"NSHost"] length] > 0) {
    return platformConnect(cls, selector);
  }
  if (server != nil || isConnecting) return server;
  isConnecting = true;
  id found = lookUp();
  // Not while a server hangs, because another one could not register the name.
  if (found == nil && !isRunning() && start()) found = lookUp();
  isConnecting = false;
  if (found != nil) use(found);
  return server;
}

}  // namespace

@implementation NSPasteboard (ServerConnection)

+ (void)load {
  platformConnect.install(object_getClass(self), sel_registerName("_pbs"), connectToServer);
}

+ (BOOL)connectToServer {
  return connectToServer(self, sel_registerName("_pbs")) != nil;
}

+ (BOOL)startServer {
  if ([self isServerRunning]) return YES;
  @try {
    launch();
  } @catch (NSException *exception) {
    // Its first use tries again.
  }
  return NO;
}

+ (BOOL)isServerRunning {
  @try {
    return isRunning();
  } @catch (NSException *exception) {
    return NO;  // for example when a process has died with the lock for names
  }
}

+ (BOOL)isConnectedToServer {
  return server != nil && [[server connectionForProxy] isValid];
}

+ (void)serverConnectionDied:(NSNotification *)notification {
  [[NSNotificationCenter defaultCenter] removeObserver:self
                                                  name:NSConnectionDidDieNotification
                                                object:[notification object]];
  if ([server connectionForProxy] != [notification object]) return;
  [server autorelease];
  server = nil;
}

@end
