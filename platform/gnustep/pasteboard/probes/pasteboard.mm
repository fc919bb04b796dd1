#import <AppKit/AppKit.h>

int main() {
  return [NSPasteboard instancesRespondToSelector:@selector(clearContents)] ? 0 : 1;
}
