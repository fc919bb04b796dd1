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

// A window of alpha value 0 is not seen, and clicks go through it. The platform leaves that to a
// program that composes the screen; where none runs the window is opaque, and where one runs it
// takes the clicks all the same.
@implementation NSWindow (Transparency)

+ (void)load {
  platformSetAlphaValue.install(self, @selector(setAlphaValue:), @selector(setAlphaValueAndShape:));
}

- (void)setAlphaValueAndShape:(CGFloat)alpha {
  const bool wasSeen = [self alphaValue] > 0;
  platformSetAlphaValue(self, _cmd, alpha);
  const bool isSeen = alpha > 0;
  // One that the window server does not know yet (it is deferred) has no shape to change.
  if (isSeen != wasSeen && [self windowNumber] > 0) setHasShape(self, isSeen);
}

@end
