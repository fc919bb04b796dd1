#import <AppKit/AppKit.h>

// A stub answers nil.
int main() {
  @autoreleasepool {
    return [NSRunningApplication currentApplication] != nil ? 0 : 1;
  }
}
