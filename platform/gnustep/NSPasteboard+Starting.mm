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

id connectToServer(id cls, SEL selector) {
  const Connecting whileThisRuns;
  return platformsConnect(cls, selector);
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
