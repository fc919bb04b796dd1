#import "platform/gnustep/theme/WindowLook.h"

#import <GNUstepGUI/GSDisplayServer.h>

#include "platform/gnustep/theme/ThemeColors.h"
#include "platform/gnustep/theme/TitleBar.h"

// Not in the platform's headers.
// clang-format off
@interface GSDisplayServer (PlatformPrivate)
- (void)setbackgroundcolor:(NSColor *)color :(int)window;
@end
// clang-format on

void giveLookToWindow(NSWindow *window) {
  const int number = static_cast<int>([window windowNumber]);
  GSDisplayServer *const server = GSServerForWindow(window);
  if (number <= 0 || ![server isKindOfClass:NSClassFromString(@"XGServer")]) return;
  // clang-format off
  [server setbackgroundcolor:[window backgroundColor] :number];
  // clang-format on
  const auto device = reinterpret_cast<unsigned long>([server windowDevice:number]);
  const bool hasTitleBar = ([window styleMask] & NSTitledWindowMask) != 0;
  if (hasTitleBar) setTitleBarIsDark([server serverDevice], device, theme::isDark());
}
