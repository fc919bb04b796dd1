#import <AppKit/AppKit.h>

namespace {

/// The setting by which the platform counts clicks, and what it takes for missing and small values.
NSString *const kSetting = @"GSDoubleClickTime";
constexpr NSInteger kLeastMilliseconds = 200;
constexpr NSInteger kUsualMilliseconds = 300;
constexpr NSTimeInterval kMillisecondsInASecond = 1000;

}  // namespace

// The platform answers 0 to everybody, and keeps the time by which it counts clicks to itself.
//
// Replacing the platform's own method is the point.
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"
@implementation NSEvent (DoubleClick)

+ (NSTimeInterval)doubleClickInterval {
  const NSInteger set = [[NSUserDefaults standardUserDefaults] integerForKey:kSetting];
  return (set < kLeastMilliseconds ? kUsualMilliseconds : set) / kMillisecondsInASecond;
}

@end
