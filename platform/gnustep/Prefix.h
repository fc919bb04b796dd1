/// Included, after FoundationPrefix.h, in front of every Objective-C++ file that may use AppKit:
/// declarations that the platform's own headers of AppKit lack.
#ifdef __OBJC__
#import "platform/gnustep/AppKitHeaders.h"
#import "platform/gnustep/interface-files/NSComboBoxDelegate.h"
#import "platform/gnustep/interface-files/NSObject+Accessibility.h"
#import "platform/gnustep/pasteboard/NSPasteboard+Writing.h"
#import "platform/gnustep/sheets/NSWindow+Sheet.h"
#import "platform/gnustep/tokenfield/NSTokenField+Tokens.h"
#endif
