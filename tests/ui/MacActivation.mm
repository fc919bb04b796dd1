#include "tests/ui/MacActivation.h"

#import <AppKit/AppKit.h>

#import "platform/gnustep/runtime/MethodReplacement.h"

namespace {

MacActivation *current = nullptr;

constinit platform::ReplacedMethod<void(id)> platformUnhide;
constinit platform::ReplacedMethod<void(BOOL)> platformActivate;

void unhide(id application, SEL selector, id sender) {
  if (current == nullptr) platformUnhide(application, selector, sender);
}

void activate(id application, SEL selector, BOOL ignoringOthers) {
  if (current == nullptr) {
    platformActivate(application, selector, ignoringOthers);
  } else {
    current->note();
  }
}

}  // namespace

MacActivation::MacActivation() {
  platformUnhide.install(object_getClass(NSApp), @selector(unhide:), unhide);
  platformActivate.install(object_getClass(NSApp), @selector(activateIgnoringOtherApps:), activate);
  current = this;
}

MacActivation::~MacActivation() {
  current = nullptr;
}
