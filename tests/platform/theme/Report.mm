// Launches as the application does, opens and closes a window, and prints its theme and fonts.
#import <AppKit/AppKit.h>
#import <GNUstepGUI/GSTheme.h>

#include <cstdio>

#import "platform/gnustep/windows/BackgroundApplication.h"
#include "tests/support/ProgramEnd.h"

int main() {
  @autoreleasepool {
    [BackgroundApplication sharedApplication];
    [NSApp finishLaunching];
    NSWindow *const window =
        [[NSWindow alloc] initWithContentRect:NSMakeRect(0, 0, 100, 100)
                                    styleMask:NSTitledWindowMask | NSClosableWindowMask
                                      backing:NSBackingStoreBuffered
                                        defer:NO];
    [window makeKeyAndOrderFront:nil];
    [window display];
    NSFont *const font = [NSFont systemFontOfSize:0];
    std::printf("theme: %s\nfont: %s\nsize: %g\n", [[[GSTheme theme] name] UTF8String],
                [[font fontName] UTF8String], [font pointSize]);
    [window close];
  }
  endProgram(0);
}
