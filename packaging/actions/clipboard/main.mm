// clipboard-has-text: exits with 0 when there is a text on the clipboard, else with 1.
//
// The application does not reply to a request for a link: when it cannot copy one it shows an alert
// and leaves the clipboard empty.

#import <AppKit/AppKit.h>

int main() {
  @autoreleasepool {
    NSArray *const texts = [NSArray arrayWithObject:NSStringPboardType];
    return [[NSPasteboard generalPasteboard] availableTypeFromArray:texts] != nil ? 0 : 1;
  }
}
