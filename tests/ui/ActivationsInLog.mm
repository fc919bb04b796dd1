#include "tests/ui/ActivationsInLog.h"

#import <AppKit/AppKit.h>

#include <algorithm>

@interface ActivationObserver : NSObject {
 @public
  const CapturedLog *log;
  std::size_t before;
  /// The indexes of the activations' lines behind those that were there before.
  std::vector<std::size_t> indexes;
}
- (void)willBecomeActive:(NSNotification *)notification;
@end

@implementation ActivationObserver

- (void)willBecomeActive:(NSNotification *)notification {
  (void)notification;
  // The delegate logs it right afterwards.
  indexes.push_back(log->lines().size() - before);
}

@end

ActivationsInLog::ActivationsInLog(const CapturedLog &log)
    : observer_([[ActivationObserver alloc] init]) {
  observer_->log = &log;
  observer_->before = log.lines().size();
  [[NSNotificationCenter defaultCenter] addObserver:observer_
                                           selector:@selector(willBecomeActive:)
                                               name:NSApplicationWillBecomeActiveNotification
                                             object:nil];
}

ActivationsInLog::~ActivationsInLog() {
  [[NSNotificationCenter defaultCenter] removeObserver:observer_];
  [observer_ release];
}

Lines ActivationsInLog::with(Lines lines) const {
  for (const std::size_t index : observer_->indexes) {
    const auto place = static_cast<std::ptrdiff_t>(std::min(index, lines.size()));
    lines.insert(lines.begin() + place, kActivated);
  }
  return lines;
}
