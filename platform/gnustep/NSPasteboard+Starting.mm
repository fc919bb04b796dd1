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
  // Retained, so that the connection with the next server is not taken for this one.
  static NSConnection *kept = nil;
  NSConnection *const connection = [server connectionForProxy];
  if (connection == nil || connection == kept) return;
  @try {
    [[NSPasteboard pasteboardWithUniqueName] declareTypes:[NSArray array]
                                                    owner:[[[NSObject alloc] init] autorelease]];
    [kept release];
    kept = [connection retain];
  } @catch (NSException *exception) {
    // The server did not answer. The next use of the pasteboard tries again.
  }
}

id connectToServer(id cls, SEL selector) {
  const Connecting whileThisRuns;
  id const server = platformsConnect(cls, selector);
  // The platform gets here once more from within, and so does keepAlive.
  if (connecting == 1) keepAlive(server);
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
