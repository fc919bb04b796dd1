// Loaded in front of the application's libraries, this makes timers of a day or so fire after
// DAY_SECONDS.
#import <Foundation/Foundation.h>
#import <objc/runtime.h>

#include <cstdlib>

namespace {

constexpr NSTimeInterval kLong = 3600;

using Schedule = NSTimer *(*)(id, SEL, NSTimeInterval, id, SEL, id, BOOL);
Schedule platformSchedule = nullptr;

NSTimer *schedule(id timers, SEL selector, NSTimeInterval seconds, id target, SEL action,
                  id userInfo, BOOL repeats) {
  const char *const day = std::getenv("DAY_SECONDS");
  const bool isShortened = seconds >= kLong && day != nullptr;
  return platformSchedule(timers, selector, isShortened ? std::atof(day) : seconds, target, action,
                          userInfo, repeats);
}

}  // namespace

@interface NSTimer (ShortDays)
@end

@implementation NSTimer (ShortDays)

+ (void)load {
  Method const method = class_getClassMethod(
      self, @selector(scheduledTimerWithTimeInterval:target:selector:userInfo:repeats:));
  platformSchedule =
      reinterpret_cast<Schedule>(method_setImplementation(method, reinterpret_cast<IMP>(schedule)));
}

@end
