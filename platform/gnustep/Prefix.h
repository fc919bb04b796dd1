/// Included, after FoundationPrefix.h, in front of every Objective-C++ file that may use AppKit:
/// declarations that the platform's own headers of AppKit lack.
#ifdef __OBJC__
#import "platform/gnustep/NSComboBoxDelegate.h"
#import "platform/gnustep/NSObject+Accessibility.h"
#import "platform/gnustep/NSPasteboard+Writing.h"
#import "platform/gnustep/NSTokenField+Tokens.h"
#import "platform/gnustep/NSWindow+Sheet.h"
#endif
