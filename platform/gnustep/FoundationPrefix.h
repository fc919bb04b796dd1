/// Included in front of every Objective-C++ file on this platform: declarations that its own
/// headers of Foundation lack.
#ifdef __OBJC__
#import "platform/gnustep/CFURL.h"
#import "platform/gnustep/NSAppleScript+FileManager.h"
#endif
