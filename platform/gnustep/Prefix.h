/// Included in front of every Objective-C++ file on this platform: declarations that its own
/// headers lack.
#ifdef __OBJC__
#import "platform/gnustep/CFURL.h"
#import "platform/gnustep/NSAppleScript+FileManager.h"
#import "platform/gnustep/NSComboBoxDelegate.h"
#import "platform/gnustep/NSObject+Accessibility.h"
#import "platform/gnustep/NSPasteboard+Writing.h"
#import "platform/gnustep/NSTokenField+Tokens.h"
#import "platform/gnustep/NSWindow+Sheet.h"
#endif
