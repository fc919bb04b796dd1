#import <AppKit/AppKit.h>
#import <objc/runtime.h>

#include <set>

#import <GNUstepGUI/GSNibLoading.h>

// The stand-in for an object that an interface file creates keeps a reference to it and never gives
// it back, so that no such object would ever end.

@interface NSCustomObject (Ownership)
@end

namespace {

using Instantiate = id (*)(id, SEL);
Instantiate platformInstantiate = nullptr;

/// The stand-ins that have made their object themselves. Others stand for one that was there before
/// (the file's owner), and that may even have ended by itself in the meantime. Main thread, as all
/// loading of interface files.
std::set<id> &makers() {
  static std::set<id> *const all = new std::set<id>;
  return *all;
}

id instantiate(id standIn, SEL selector) {
  const bool isNew = [standIn realObject] == nil;
  id const object = platformInstantiate(standIn, selector);
  if (isNew && object != nil) makers().insert(standIn);
  return object;
}

void endStandIn(id standIn, SEL selector) {
  if (makers().erase(standIn) > 0) {
    // NOLINTNEXTLINE(clang-analyzer-osx.cocoa.RetainCount): the reference from its making
    [[standIn realObject] release];
  }
  [standIn setClassName:nil];
  [standIn setExtension:nil];
  Class const superclass = class_getSuperclass([NSCustomObject class]);
  reinterpret_cast<void (*)(id, SEL)>(class_getMethodImplementation(superclass, selector))(
      standIn, selector);
}

}  // namespace

@implementation NSCustomObject (Ownership)

+ (void)load {
  // A version of the platform that ends its stand-ins properly has a dealloc of its own.
  if (!class_addMethod(self, @selector(dealloc), reinterpret_cast<IMP>(endStandIn), "v@:")) return;
  Method const method = class_getInstanceMethod(self, @selector(nibInstantiate));
  platformInstantiate = reinterpret_cast<Instantiate>(
      method_setImplementation(method, reinterpret_cast<IMP>(instantiate)));
}

@end
