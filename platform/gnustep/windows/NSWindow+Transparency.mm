#import <AppKit/AppKit.h>
#import <GNUstepGUI/GSDisplayServer.h>

#import "platform/gnustep/runtime/MethodReplacement.h"
#include "platform/gnustep/windows/WindowShape.h"

namespace {

constinit platform::ReplacedMethod<void(CGFloat)> platformSetAlphaValue;

void setHasShape(NSWindow *window, bool hasShape) {
  GSDisplayServer *const server = GSServerForWindow(window);
  if (![server isKindOfClass:NSClassFromString(@"XGServer")]) return;
  void *const device = [server windowDevice:static_cast<int>([window windowNumber])];
  setWindowHasShape([server serverDevice], reinterpret_cast<unsigned long>(device), hasShape);
}

}  // namespace

// A window with an alpha value of 0 is invisible and does not receive clicks. The platform leaves
// that to a compositing manager: without one the window is opaque, and with one it still receives
// clicks.
@implementation NSWindow (Transparency)

+ (void)load {
  platformSetAlphaValue.install(self, @selector(setAlphaValue:), @selector(setAlphaValueAndShape:));
}

- (void)setAlphaValueAndShape:(CGFloat)alpha {
  const bool wasSeen = [self alphaValue] > 0;
  platformSetAlphaValue(self, _cmd, alpha);
  const bool isSeen = alpha > 0;
  // A deferred window does not exist on the window server yet.
  if (isSeen != wasSeen && [self windowNumber] > 0) setHasShape(self, isSeen);
}

@end
