// Performs a service as the Services menu does.
//
//   perform_service TITLE PATH...    the paths are what is selected

#import <AppKit/AppKit.h>

#include "tests/support/ProgramEnd.h"

/// Replaces the platform's function, which asks the user after five seconds whether to wait for a
/// program that seems to hang, and chooses to wait.
extern "C" NSInteger NSRunAlertPanel(NSString * /*title*/, NSString * /*message*/,
                                     NSString * /*defaultButton*/, NSString * /*alternateButton*/,
                                     NSString * /*otherButton*/, ...) {
  return NSAlertOtherReturn;
}

int main(int argc, char *argv[]) {
  if (argc < 3) return 2;
  bool isPerformed = false;
  @autoreleasepool {
    [NSApplication sharedApplication];
    // As a file manager does, so that services for files are looked for.
    NSArray *const types = [NSArray arrayWithObject:NSFilenamesPboardType];
    [NSApp registerServicesMenuSendTypes:types returnTypes:[NSArray array]];
    NSMutableArray *const paths = [NSMutableArray array];
    for (int index = 2; index < argc; ++index) {
      [paths addObject:[NSString stringWithUTF8String:argv[index]]];
    }
    NSPasteboard *const pasteboard = [NSPasteboard pasteboardWithUniqueName];
    [pasteboard declareTypes:types owner:nil];
    [pasteboard setPropertyList:paths forType:NSFilenamesPboardType];
    isPerformed = NSPerformService([NSString stringWithUTF8String:argv[1]], pasteboard);
  }
  endProgram(isPerformed ? 0 : 1);
}
