// Another program of the platform that looks at the clipboard and ends.
//
//   clipboard_reader    prints its text

#import <AppKit/AppKit.h>

#include <cstdio>

#include "tests/support/ProgramEnd.h"

int main() {
  @autoreleasepool {
    NSPasteboard *const pasteboard = [NSPasteboard generalPasteboard];
    NSString *const text = [pasteboard stringForType:NSStringPboardType];
    std::puts([text UTF8String] ?: "");
  }
  endProgram(0);
}
