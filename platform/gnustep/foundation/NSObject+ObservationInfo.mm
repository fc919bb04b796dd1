#import <Foundation/Foundation.h>

#import "platform/gnustep/runtime/MethodReplacement.h"

// Releases the observation info of an object that is deallocated while it is observed. The platform
// leaks it: 2 KiB for each window whose controller observes itself.

namespace {

constinit platform::ReplacedMethod<void()> platformDealloc;

void dealloc(id object, SEL selector) {
  // The platform owns it by its one reference and drops the pointer here.
  id const record = static_cast<id>([object observationInfo]);
  platformDealloc(object, selector);
  [record release];
}

}  // namespace

/// The class from which observed objects get their dealloc; its header is not public.
@interface GSKVOBase : NSObject
@end

@interface GSKVOBase (Observed)
@end

@implementation GSKVOBase (Observed)

/// Before the first object is observed, because the class of each takes a copy of the method.
+ (void)load {
  platformDealloc.install(self, @selector(dealloc), dealloc);
}

@end
