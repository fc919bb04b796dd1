#include "tests/support/MacRules.h"

#import <AppKit/AppKit.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <mutex>
#include <string>
#include <vector>

#import "platform/gnustep/runtime/DeallocHook.h"
#import "platform/gnustep/runtime/MethodReplacement.h"

@interface NSNotificationCenter (PlatformPrivate)
- (void)_postAndRelease:(NSNotification *)notification;
@end

@interface NSRunLoop (PlatformPrivate)
- (void)acceptInputForMode:(NSString *)mode beforeDate:(NSDate *)date;
@end

namespace {

#pragma mark - Notifications

/// An observation by an object of the application.
struct Observation {
  id center;
  id observer;
  std::string name;  // empty for all
  id object;         // nil for all
  unsigned long number;
};

/// An observer that has been deallocated.
struct Ended {
  const void *observer;
  std::string cls;
  /// The number of the next observation at that time: later ones are those of another object.
  unsigned long nextNumber;
};

std::mutex lock;
std::vector<Observation> observations;
std::vector<Ended> endedObservers;
unsigned long nextNumber = 0;

std::string utf8(NSString *string) {
  return string == nil ? std::string() : [string UTF8String];
}

bool isOfApplication(id observer) {
  Class const cls = object_getClass(observer);
  return !class_isMetaClass(cls) && [NSBundle bundleForClass:cls] == [NSBundle mainBundle];
}

void noteEnd(id observer) {
  const std::lock_guard<std::mutex> guard(lock);
  endedObservers.push_back({observer, class_getName(object_getClass(observer)), nextNumber});
}

/// The observations of objects that have ended, each as a text.
std::vector<std::string> observationsOfEnded() {
  const std::lock_guard<std::mutex> guard(lock);
  std::vector<std::string> left;
  for (const Ended &ended : endedObservers) {
    std::erase_if(observations, [&](const Observation &observation) {
      if (observation.observer != ended.observer || observation.number >= ended.nextNumber) {
        return false;
      }
      left.push_back(ended.cls + " observing \"" + observation.name + '"');
      return true;
    });
  }
  endedObservers.clear();
  return left;
}

void expectNoEndedObservers() {
  for (const std::string &observation : observationsOfEnded()) {
    ADD_FAILURE() << "deallocated: " << observation;
  }
}

constinit platform::ReplacedMethod<void(id, SEL, NSString *, id)> platformAddObserver;

void addObserver(id center, SEL selector, id observer, SEL message, NSString *name, id object) {
  if (isOfApplication(observer)) {
    // Views observe for the platform, which deallocates texts in two steps.
    if (![observer isKindOfClass:[NSView class]]) {
      addDeallocHook(object_getClass(observer), noteEnd);
    }
    const std::lock_guard<std::mutex> guard(lock);
    observations.push_back({center, observer, utf8(name), object, nextNumber++});
  }
  platformAddObserver(center, selector, observer, message, name, object);
}

constinit platform::ReplacedMethod<void(id, NSString *, id)> platformRemoveObserver;

void removeObserver(id center, SEL selector, id observer, NSString *name, id object) {
  {
    const std::lock_guard<std::mutex> guard(lock);
    std::erase_if(observations, [&](const Observation &observation) {
      return observation.center == center &&
             (observer == nil || observation.observer == observer) &&
             (name == nil || observation.name == utf8(name)) &&
             (object == nil || observation.object == object);
    });
  }
  platformRemoveObserver(center, selector, observer, name, object);
}

constinit platform::ReplacedMethod<void(NSNotification *)> platformPost;

/// The application's observers of a notification, retained.
std::vector<id> retainedObserversOf(id center, NSNotification *notification) {
  std::vector<id> observers;
  const std::string name = utf8([notification name]);
  const std::lock_guard<std::mutex> guard(lock);
  for (const Observation &observation : observations) {
    if (observation.center == center && (observation.name.empty() || observation.name == name) &&
        (observation.object == nil || observation.object == [notification object])) {
      observers.push_back([observation.observer retain]);
    }
  }
  return observers;
}

void post(id center, SEL selector, NSNotification *notification) {
  const std::vector<id> observers = retainedObserversOf(center, notification);
  platformPost(center, selector, notification);
  for (id observer : observers) [observer release];
}

/// At the end of each test, because an object may post notifications in its dealloc before it
/// removes itself from the observers.
class ObserversAtEndOfTest : public testing::EmptyTestEventListener {
  void OnTestEnd(const testing::TestInfo &) override { expectNoEndedObservers(); }
};

#pragma mark - Autorelease pools

/// The pool of the event while the platform may have one of its own inside it; nil otherwise, and
/// always on other threads than the main one.
thread_local NSAutoreleasePool *poolOfEvent = nil;

/// While the first one lives, what is autoreleased on the main thread is also kept in the pool that
/// was current when it began.
class KeptUntilEndOfEvent {
 public:
  KeptUntilEndOfEvent() : isFirst_(poolOfEvent == nil && [NSThread isMainThread]) {
    if (isFirst_) poolOfEvent = [NSAutoreleasePool currentPool];
  }
  ~KeptUntilEndOfEvent() {
    if (isFirst_) poolOfEvent = nil;
  }
  KeptUntilEndOfEvent(const KeptUntilEndOfEvent &) = delete;
  KeptUntilEndOfEvent &operator=(const KeptUntilEndOfEvent &) = delete;

 private:
  bool isFirst_;
};

constinit platform::ReplacedMethod<id()> platformAutorelease;

id autorelease(id object, SEL selector) {
  if (poolOfEvent != nil) [poolOfEvent addObject:[object retain]];
  return platformAutorelease(object, selector);
}

constinit platform::ReplacedMethod<void()> platformLoadWindow;

void loadWindow(id controller, SEL selector) {
  const KeptUntilEndOfEvent kept;
  platformLoadWindow(controller, selector);
}

constinit platform::ReplacedMethod<BOOL(NSString *, NSDate *)> platformRunMode;

BOOL runMode(id runLoop, SEL selector, NSString *mode, NSDate *date) {
  const KeptUntilEndOfEvent kept;
  return platformRunMode(runLoop, selector, mode, date);
}

constinit platform::ReplacedMethod<NSDate *(NSString *)> platformLimitDate;

NSDate *limitDate(id runLoop, SEL selector, NSString *mode) {
  const KeptUntilEndOfEvent kept;
  return platformLimitDate(runLoop, selector, mode);
}

constinit platform::ReplacedMethod<void(NSString *, NSDate *)> platformAcceptInput;

void acceptInput(id runLoop, SEL selector, NSString *mode, NSDate *date) {
  const KeptUntilEndOfEvent kept;
  platformAcceptInput(runLoop, selector, mode, date);
}

}  // namespace

void keepMacRulesIfAsked() {
  if (!keepMacRules()) return;
  // The defaults add observers. Finding out whose these are would make the defaults once more,
  // inside themselves, and what the platform then throws away it leaks in part.
  [NSUserDefaults standardUserDefaults];
  Class const center = [NSNotificationCenter class];
  platformAddObserver.install(center, @selector(addObserver:selector:name:object:), addObserver);
  platformRemoveObserver.install(center, @selector(removeObserver:name:object:), removeObserver);
  platformPost.install(center, @selector(_postAndRelease:), post);
  platformAutorelease.install([NSObject class], @selector(autorelease), autorelease);
  platformLoadWindow.install([NSWindowController class], @selector(loadWindow), loadWindow);
  Class const runLoop = [NSRunLoop class];
  platformRunMode.install(runLoop, @selector(runMode:beforeDate:), runMode);
  platformLimitDate.install(runLoop, @selector(limitDateForMode:), limitDate);
  platformAcceptInput.install(runLoop, @selector(acceptInputForMode:beforeDate:), acceptInput);
  // Owned by the list.
  testing::UnitTest::GetInstance()->listeners().Append(new ObserversAtEndOfTest);
}
