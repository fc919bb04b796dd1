#import "tests/support/TypeAheadUser.h"

#include <utility>

#include "tests/support/Events.h"

TypeAheadUser::TypeAheadUser(NSWindow *window, NSString *keys, std::function<bool()> when,
                             std::function<void()> then)
    : window_([window retain]),
      keys_([keys copy]),
      when_(std::move(when)),
      then_(std::move(then)),
      timer_(NSConnectionReplyMode, [this] { look(); }) {}

TypeAheadUser::~TypeAheadUser() {
  [window_ release];
  [keys_ release];
}

void TypeAheadUser::look() {
  if (hasTyped_ || !when_()) return;
  hasTyped_ = true;
  postKeys(window_, keys_);
  then_();
}
