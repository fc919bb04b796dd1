#import "platform/gnustep/windows/WindowList.h"

#import <AppKit/AppKit.h>
#import <GNUstepGUI/GSDisplayServer.h>

#include <unordered_map>

#import "platform/gnustep/runtime/MethodReplacement.h"
#include "platform/gnustep/windows/WindowOrder.h"

namespace {

/// The numbers of this application's windows from the front to the back: those that the window
/// manager shows, or where it shows none at all those that are to be visible.
NSArray *windowList(GSDisplayServer *self, SEL selector) {
  const std::vector<unsigned long> shown = windowsFromFrontToBack([self serverDevice]);
  if (shown.empty()) {
    using Function = NSArray *(*)(id, SEL);
    return reinterpret_cast<Function>([GSDisplayServer instanceMethodForSelector:selector])(
        self, selector);
  }
  std::unordered_map<unsigned long, int> numbers;
  for (NSWindow *window in [NSApp windows]) {
    const int number = static_cast<int>([window windowNumber]);
    // A deferred window does not exist on the window server yet.
    if (number <= 0) continue;
    numbers.emplace(reinterpret_cast<unsigned long>([self windowDevice:number]), number);
  }
  NSMutableArray *const own = [NSMutableArray array];
  for (const unsigned long window : shown) {
    const auto found = numbers.find(window);
    if (found != numbers.end()) [own addObject:[NSNumber numberWithInt:found->second]];
  }
  return own;
}

}  // namespace

void installWindowList() {
  platform::replaceMethod(NSClassFromString(@"XGServer"), @selector(windowlist),
                          reinterpret_cast<IMP>(windowList));
}
