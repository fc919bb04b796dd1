#import "tests/support/ImpatientUser.h"

#include <utility>

#include "tests/support/Events.h"

ImpatientUser::ImpatientUser(NSWindow *window, NSString *keys, std::function<bool()> when)
    : window_([window retain]),
      keys_([keys copy]),
      when_(std::move(when)),
      timer_(NSConnectionReplyMode, [this] { look(); }) {}

ImpatientUser::~ImpatientUser() {
  [window_ release];
  [keys_ release];
}

void ImpatientUser::look() {
  if (hasTyped_ || !when_()) return;
  hasTyped_ = true;
  postKeys(window_, keys_);
}
