// Included in front of everything when the API floor is checked (api_floor.py), with the platform's
// headers set to declare nothing newer than macOS 10.6 and no extension.
//
// With so much hidden the headers no longer fit together in a few places. These declarations fill
// the gaps with names that the application cannot mistake for something usable.

// Four headers open a C linkage block outside a version condition and close it inside, so that
// everything after them would be C. Three are newer than the floor and are kept out altogether; the
// fourth gets its closing brace here.
#define _NSDateInterval_h_GNUSTEP_BASE_INCLUDE
#define _NSDateIntervalFormatter_h_GNUSTEP_BASE_INCLUDE
#define _NSProgress_h_GNUSTEP_BASE_INCLUDE
#import <Foundation/NSURL.h>
}

#import <Foundation/Foundation.h>

@protocol NSAccessibilitySwitch
@end
@protocol NSSeguePerforming
@end
@protocol NSTextFinderClient
@end
typedef NSInteger NSControlStateValue;

#import <AppKit/AppKit.h>

// Hidden among GNUstep's extensions, although 10.6 has it.
@protocol NSApplicationDelegate <NSObject>
@end

// GNUstep's macros are always visible; they would not exist on a Mac.
#undef ASSIGN
#undef ASSIGNCOPY
#undef ASSIGNMUTABLECOPY
#undef AUTORELEASE
#undef CREATE_AUTORELEASE_POOL
#undef DEALLOC
#undef DESTROY
#undef ENTER_POOL
#undef LEAVE_POOL
#undef RECREATE_AUTORELEASE_POOL
#undef RELEASE
#undef RETAIN
#undef TEST_AUTORELEASE
#undef TEST_RELEASE
#undef TEST_RETAIN
