#import <AppKit/AppKit.h>

namespace {

/// The default by which the platform counts clicks, and its values for a missing and a small one.
NSString *const kSetting = @"GSDoubleClickTime";
constexpr NSInteger kLeastMilliseconds = 200;
constexpr NSInteger kUsualMilliseconds = 300;
constexpr NSTimeInterval kMillisecondsInASecond = 1000;

}  // namespace

// The platform always answers 0 and does not publish the interval that it uses.
//
// Replacing the platform's own method is the point.
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"
@implementation NSEvent (DoubleClick)

+ (NSTimeInterval)doubleClickInterval {
  const NSInteger set = [[NSUserDefaults standardUserDefaults] integerForKey:kSetting];
  return (set < kLeastMilliseconds ? kUsualMilliseconds : set) / kMillisecondsInASecond;
}

@end
