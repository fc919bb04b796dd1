#import "platform/gnustep/runtime/DeallocHook.h"

#import <objc/runtime.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <mutex>
#include <vector>

namespace {

using Dealloc = void (*)(id, SEL);

struct Hooked {
  Dealloc original;
  std::vector<DeallocAction> atEnd;
};

struct Hooks {
  std::mutex lock;
  std::map<Class, Hooked> classes;
};

Hooks &hooks() {
  static Hooks *const all = new Hooks;  // objects end after static destructors, too
  return *all;
}

void runActions(id object, SEL dealloc, Class cls) {
  Hooked hooked = {};
  {
    const std::lock_guard<std::mutex> guard(hooks().lock);
    hooked = hooks().classes.at(cls);
  }
  for (const DeallocAction atEnd : hooked.atEnd) atEnd(object);
  hooked.original(object, dealloc);
}

/// The objects that are ending on this thread, innermost last, each with the hooked class whose
/// part of the dealloc is running. A superclass may be hooked as well: its turn comes through
/// [super dealloc], and the object's class alone does not tell which of the two is meant.
thread_local std::vector<std::pair<id, Class>> activeDeallocs;

class ActiveDealloc {
 public:
  ActiveDealloc(id object, Class cls) { activeDeallocs.emplace_back(object, cls); }
  ~ActiveDealloc() { activeDeallocs.pop_back(); }
  ActiveDealloc(const ActiveDealloc &) = delete;
  ActiveDealloc &operator=(const ActiveDealloc &) = delete;
};

void hookedDealloc(id object, SEL dealloc) {
  Class from = object_getClass(object);
  if (!activeDeallocs.empty() && activeDeallocs.back().first == object) {
    from = class_getSuperclass(activeDeallocs.back().second);
  }
  Class cls = from;
  {
    const std::lock_guard<std::mutex> guard(hooks().lock);
    while (cls != Nil && hooks().classes.count(cls) == 0) cls = class_getSuperclass(cls);
  }
  const ActiveDealloc scope(object, cls);
  runActions(object, dealloc, cls);
}

/// By its name, because a class that is loaded before this file asks for a hook: @selector has no
/// meaning in a file that the runtime has not loaded yet, whose place in the link decides about
/// that.
SEL deallocSelector() {
  return sel_registerName("dealloc");
}

bool hasOwnDealloc(Class cls) {
  unsigned count = 0;
  Method *const methods = class_copyMethodList(cls, &count);
  const bool has = std::any_of(methods, methods + count, [](Method method) {
    return sel_isEqual(method_getName(method), deallocSelector());
  });
  std::free(methods);
  return has;
}

/// The class itself or the next above it with a dealloc of its own, so that a class is not given a
/// method that it does not have; the class itself where only the root class has one, which all
/// objects share.
Class withDealloc(Class cls) {
  for (Class above = cls; class_getSuperclass(above) != Nil; above = class_getSuperclass(above)) {
    if (hasOwnDealloc(above)) return above;
  }
  return cls;
}

}  // namespace

void addDeallocHook(Class given, DeallocAction atEnd) {
  Class const cls = withDealloc(given);
  const std::lock_guard<std::mutex> guard(hooks().lock);
  auto &classes = hooks().classes;
  const auto known = classes.find(cls);
  if (known != classes.end()) {
    auto &present = known->second.atEnd;
    if (std::find(present.begin(), present.end(), atEnd) == present.end()) present.push_back(atEnd);
    return;
  }
  const SEL dealloc = deallocSelector();
  Method const inherited = class_getInstanceMethod(cls, dealloc);
  const IMP original = method_getImplementation(inherited);
  classes[cls] = {reinterpret_cast<Dealloc>(original), {atEnd}};
  // Not class_replaceMethod: this runtime's replaces the superclass's method when the class has
  // none of its own.
  if (!class_addMethod(cls, dealloc, reinterpret_cast<IMP>(hookedDealloc),
                       method_getTypeEncoding(inherited))) {
    method_setImplementation(inherited, reinterpret_cast<IMP>(hookedDealloc));
  }
}
