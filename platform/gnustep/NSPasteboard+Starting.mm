#import "platform/gnustep/NSPasteboard+Starting.h"

#import <objc/runtime.h>

namespace {

using Connect = id (*)(id, SEL);

Connect platformsConnect = nullptr;
int connecting = 0;

class Connecting {
 public:
  Connecting() { ++connecting; }
  ~Connecting() { --connecting; }
  Connecting(const Connecting &) = delete;
  Connecting &operator=(const Connecting &) = delete;
};

/// The platform starts the server so that it ends, and the clipboard with it, when a program that
/// has used it does; only those that have ever owned a pasteboard keep it alive. So this program
/// owns one, of which nobody else knows, with each server that it comes to be connected to.
void keepAlive(id server) {
  static id const owner = [[NSObject alloc] init];
  static NSConnection *kept = nil;
  static NSPasteboard *owned = nil;
  NSConnection *const connection = [server connectionForProxy];
  if (connection == nil || connection == kept) return;
  [kept release];
  kept = [connection retain];
  [owned release];
  owned = nil;
  @try {
    owned = [[NSPasteboard pasteboardWithUniqueName] retain];
    [owned declareTypes:[NSArray array] owner:owner];
  } @catch (NSException *exception) {
    NSLog(@"pasteboard server lost: %@", [exception reason]);
  }
}

id connectToServer(id cls, SEL selector) {
  id server = nil;
  {
    const Connecting whileThisRuns;
    server = platformsConnect(cls, selector);
  }
  if (connecting == 0) keepAlive(server);
  return server;
}

}  // namespace

@implementation NSPasteboard (Starting)

+ (void)load {
  Method const method = class_getClassMethod(self, sel_registerName("_pbs"));
  platformsConnect = reinterpret_cast<Connect>(
      method_setImplementation(method, reinterpret_cast<IMP>(connectToServer)));
}

+ (BOOL)isConnectingToServer {
  return connecting > 0;
}

@end
