// The yardstick of the direct copy: the same requests, written directly with Foundation, with no
// check, no time-out, no log line and no message to the user. It vends its object as "Yardstick".
#import <AppKit/AppKit.h>

#import "agent/KRVProxy.h"
#import "plugin/ContextMenuService.h"

namespace {

id agentProxy() {
  return [NSConnection rootProxyForConnectionWithRegisteredName:@"KRVSyncAgent" host:nil];
}

}  // namespace

// Only the copy is measured; no windows are opened.
#pragma clang diagnostic ignored "-Wprotocol"
@interface BareCopyService : NSObject <ContextMenuService>
@end

@implementation BareCopyService

// clang-format off
- (void)copyLinkToClipboard:(NSString *)item:(BOOL)isFolder:(BOOL)unused {
  (void)isFolder;
  (void)unused;
  // As the application does: an operation looks the agent up when it begins and again before it
  // sends.
  id proxy = agentProxy();
  proxy = agentProxy();
  NSDictionary *const reply = [proxy getLinkForFile:item:YES:NO:@"-1":YES];
  // clang-format on
  const int error = [[reply objectForKey:@"error"] intValue];
  NSString *const link = [reply objectForKey:@"value"];
  NSString *const message = [reply objectForKey:@"errorMessage"];
  if (error != 0 || message != nil) return;
  NSPasteboard *const pasteboard = [NSPasteboard generalPasteboard];
  [pasteboard declareTypes:[NSArray arrayWithObject:NSStringPboardType] owner:nil];
  [pasteboard setString:link forType:NSStringPboardType];
}

@end

@interface YardstickDelegate : NSObject <NSApplicationDelegate> {
 @private
  NSConnection *_connection;
}
@end

@implementation YardstickDelegate

- (void)applicationDidFinishLaunching:(NSNotification *)notification {
  (void)notification;
  // Not the program's own name: under that one the platform offers the services of every
  // application.
  _connection = [[NSConnection alloc] init];
  [_connection setRootObject:[[[BareCopyService alloc] init] autorelease]];
  [_connection registerName:@"Yardstick"];
}

@end

int main(int argc, char *argv[]) {
  return NSApplicationMain(argc, const_cast<const char **>(argv));
}
