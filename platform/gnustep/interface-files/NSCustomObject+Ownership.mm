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
std::set<id> &creators() {
  static std::set<id> *const all = new std::set<id>;
  return *all;
}

id instantiate(id customObject, SEL selector) {
  const bool isNew = [customObject realObject] == nil;
  id const object = platformInstantiate(customObject, selector);
  if (isNew && object != nil) creators().insert(customObject);
  return object;
}

void deallocCustomObject(id customObject, SEL selector) {
  if (creators().erase(customObject) > 0) {
    // NOLINTNEXTLINE(clang-analyzer-osx.cocoa.RetainCount): the reference from its making
    [[customObject realObject] release];
  }
  [customObject setClassName:nil];
  [customObject setExtension:nil];
  Class const superclass = class_getSuperclass([NSCustomObject class]);
  reinterpret_cast<void (*)(id, SEL)>(class_getMethodImplementation(superclass, selector))(
      customObject, selector);
}

}  // namespace

@implementation NSCustomObject (Ownership)

+ (void)load {
  // A version of the platform that ends its stand-ins properly has a dealloc of its own.
  if (!class_addMethod(self, @selector(dealloc), reinterpret_cast<IMP>(deallocCustomObject), "v@:"))
    return;
  Method const method = class_getInstanceMethod(self, @selector(nibInstantiate));
  platformInstantiate = reinterpret_cast<Instantiate>(
      method_setImplementation(method, reinterpret_cast<IMP>(instantiate)));
}

@end
