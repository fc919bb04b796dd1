#pragma once

#import <objc/runtime.h>

#include <cstdlib>

/// The implementation of a method that the class itself was written with, when categories have
/// replaced it: what such a category calls to do a little more than the platform. (Replacing the
/// implementation at run time instead would not reach subclasses that are in use already.)
/// Function: the type of the method as a function. Null when the class has no such method.
template <class Function>
Function ownMethod(Class cls, SEL selector) {
  Function own = nullptr;
  unsigned count = 0;
  Method *const methods = class_copyMethodList(cls, &count);
  // Categories stand in front of the methods that they replace.
  for (unsigned i = 0; i < count; ++i) {
    if (sel_isEqual(method_getName(methods[i]), selector)) {
      own = reinterpret_cast<Function>(method_getImplementation(methods[i]));
    }
  }
  std::free(methods);
  return own;
}
