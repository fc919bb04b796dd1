#import <Foundation/Foundation.h>

#import "platform/gnustep/runtime/MethodReplacement.h"

// The record of an object's observers, which the platform leaves behind when the object ends while
// it is observed: 2 KiB for each window whose controller observes itself.

namespace {

constinit platform::ReplacedMethod<void()> platformDealloc;

void dealloc(id object, SEL selector) {
  // The platform holds it with the one reference from its making, and forgets it here.
  id const record = static_cast<id>([object observationInfo]);
  platformDealloc(object, selector);
  [record release];
}

}  // namespace

/// What the platform gives to the class of each object that is observed; its own header is not
/// public.
@interface GSKVOBase : NSObject
@end

@interface GSKVOBase (Observed)
@end

@implementation GSKVOBase (Observed)

/// Before the first object is observed, because the classes of those take copies of the method.
+ (void)load {
  platformDealloc.install(self, @selector(dealloc), dealloc);
}

@end
