/// Included in front of every Objective-C++ file on this platform: declarations that its own
/// headers of Foundation lack.
#ifdef __OBJC__
#import "platform/gnustep/FoundationHeaders.h"
#import "platform/gnustep/foundation/CFURL.h"
#import "platform/gnustep/workspace/NSAppleScript+FileManager.h"
#endif
