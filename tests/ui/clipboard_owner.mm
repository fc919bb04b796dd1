// Another program of the platform that owns the clipboard, is notified when it no longer does, and
// runs until it is killed. Prints "owns" first.

#import <AppKit/AppKit.h>

#include <cstdio>

@interface ClipboardOwner : NSObject
@end

@implementation ClipboardOwner

- (void)pasteboardChangedOwner:(NSPasteboard *)pasteboard {
  (void)pasteboard;
}

@end

int main() {
  @autoreleasepool {
    ClipboardOwner *const owner = [[ClipboardOwner alloc] init];
    NSPasteboard *const general = [NSPasteboard generalPasteboard];
    [general declareTypes:[NSArray arrayWithObject:NSStringPboardType] owner:owner];
    [general setString:@"theirs" forType:NSStringPboardType];
    std::puts("owns");
    std::fflush(stdout);
    [[NSRunLoop currentRunLoop] run];
  }
}
