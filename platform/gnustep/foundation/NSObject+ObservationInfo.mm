#import <Foundation/Foundation.h>
#import <objc/runtime.h>

// The record of an object's observers, which the platform leaves behind when the object ends while
// it is observed: 2 KiB for each window whose controller observes itself.

namespace {

using Dealloc = void (*)(id, SEL);
Dealloc platformDealloc = nullptr;

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
  Method const method = class_getInstanceMethod(self, @selector(dealloc));
  platformDealloc =
      reinterpret_cast<Dealloc>(method_setImplementation(method, reinterpret_cast<IMP>(dealloc)));
}

@end
