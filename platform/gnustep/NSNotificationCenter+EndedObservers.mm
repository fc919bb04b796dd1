#import <Foundation/Foundation.h>
#import <objc/runtime.h>

#include <dlfcn.h>

#import "platform/gnustep/DeallocHook.h"

/// Observers that disappear with their object. On the Mac one that ends while it is registered is
/// forgotten; the notification centre here keeps its bare address and sends the next notification
/// there.
@interface NSNotificationCenter (EndedObservers)
@end

namespace {

using AddObserver = void (*)(id, SEL, id, SEL, NSString *, id);
AddObserver platformAddObserver = nullptr;

void forget(id observer) {
  [[NSNotificationCenter defaultCenter] removeObserver:observer];
}

/// Whether the class is the program's own, by where it lies in memory. A bundle could tell as well,
/// but classes observe before there are bundles.
bool isOwn(Class cls) {
  Dl_info its = {};
  Dl_info ours = {};
  return dladdr(cls, &its) != 0 && dladdr(reinterpret_cast<void *>(isOwn), &ours) != 0 &&
         its.dli_fbase == ours.dli_fbase;
}

/// Only for classes of the program: the platform's own look after themselves, and there are many.
void addObserver(id center, SEL self_, id observer, SEL handler, NSString *name, id object) {
  Class cls = object_getClass(observer);
  // A class that was made at run time (an observed object's) lies nowhere; its superclass does.
  Dl_info its = {};
  while (cls != Nil && dladdr(cls, &its) == 0) cls = class_getSuperclass(cls);
  if (observer != nil && isOwn(cls)) addDeallocHook(cls, forget);
  platformAddObserver(center, self_, observer, handler, name, object);
}

}  // namespace

@implementation NSNotificationCenter (EndedObservers)

+ (void)load {
  const SEL selector = @selector(addObserver:selector:name:object:);
  Method const method = class_getInstanceMethod(self, selector);
  platformAddObserver = reinterpret_cast<AddObserver>(method_getImplementation(method));
  class_replaceMethod(self, selector, reinterpret_cast<IMP>(addObserver),
                      method_getTypeEncoding(method));
}

@end
