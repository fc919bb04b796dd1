#import "platform/gnustep/runtime/MethodReplacement.h"

#include <algorithm>
#include <cstdlib>

/// The runtime exports this function without declaring it in a header. It brings the caches of a
/// class and of its subclasses up to date.
// NOLINTNEXTLINE(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp): the runtime's name
extern "C" void __objc_update_dispatch_table_for_class(Class cls);

namespace {

/// A method as the compiler writes it for this runtime, which keeps the layout to itself.
struct WrittenMethod {
  SEL name;
  const char *types;
  IMP implementation;
};

/// Not method_setImplementation alone, which looks for the method among those of every class: a
/// twentieth of the time of a launch that replaces seventy methods.
void setImplementation(Class cls, Method method, IMP implementation) {
  auto *const written = reinterpret_cast<WrittenMethod *>(method);
  if (written->implementation == method_getImplementation(method)) {
    written->implementation = implementation;
  } else {
    method_setImplementation(method, implementation);
  }
  // Those of subclasses, too, which may have been in use.
  __objc_update_dispatch_table_for_class(cls);
}

}  // namespace

namespace platform {

bool hasOwnMethod(Class cls, SEL selector) {
  unsigned count = 0;
  Method *const methods = class_copyMethodList(cls, &count);
  const bool has = std::any_of(methods, methods + count, [selector](Method method) {
    return sel_isEqual(method_getName(method), selector);
  });
  std::free(methods);
  return has;
}

IMP replaceMethod(Class cls, SEL selector, IMP replacement) {
  Method const method = class_getInstanceMethod(cls, selector);
  if (method == nullptr) return nullptr;
  const IMP former = method_getImplementation(method);
  // Not class_replaceMethod: this runtime's changes the superclass's method where the class
  // inherits it.
  if (!hasOwnMethod(cls, selector)) {
    class_addMethod(cls, selector, replacement, method_getTypeEncoding(method));
    return former;
  }
  setImplementation(cls, method, replacement);
  return former;
}

}  // namespace platform
