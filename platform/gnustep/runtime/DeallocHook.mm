#import "platform/gnustep/runtime/DeallocHook.h"

#include <algorithm>
#include <map>
#include <mutex>
#include <vector>

#import "platform/gnustep/runtime/MethodReplacement.h"

namespace {

using Dealloc = void (*)(id, SEL);

struct Hooked {
  Dealloc original;
  std::vector<DeallocAction> actions;
};

struct Hooks {
  std::mutex lock;
  std::map<Class, Hooked> classes;
};

Hooks &hooks() {
  static Hooks *const all = new Hooks;  // objects are deallocated after static destructors, too
  return *all;
}

void runActions(id object, SEL dealloc, Class cls) {
  Hooked hooked = {};
  {
    const std::lock_guard<std::mutex> guard(hooks().lock);
    hooked = hooks().classes.at(cls);
  }
  for (const DeallocAction action : hooked.actions) action(object);
  hooked.original(object, dealloc);
}

/// The objects that are being deallocated on this thread, innermost last, each with the hooked
/// class whose implementation is running. A superclass may be hooked as well; it is reached through
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

/// By its name, because the +load of a file that is linked before this one may add a hook:
/// @selector is not resolved yet in a file that the runtime has not loaded.
SEL deallocSelector() {
  return sel_registerName("dealloc");
}

/// The nearest class, from the given one upwards, that implements dealloc; the given class where
/// only the root class does, because all objects share that.
Class withDealloc(Class cls) {
  for (Class above = cls; class_getSuperclass(above) != Nil; above = class_getSuperclass(above)) {
    if (platform::hasOwnMethod(above, deallocSelector())) return above;
  }
  return cls;
}

}  // namespace

void addDeallocHook(Class given, DeallocAction action) {
  Class const cls = withDealloc(given);
  const std::lock_guard<std::mutex> guard(hooks().lock);
  auto &classes = hooks().classes;
  const auto known = classes.find(cls);
  if (known != classes.end()) {
    auto &present = known->second.actions;
    if (std::find(present.begin(), present.end(), action) == present.end())
      present.push_back(action);
    return;
  }
  // Before the hook can be called.
  const IMP original = method_getImplementation(class_getInstanceMethod(cls, deallocSelector()));
  classes[cls] = {reinterpret_cast<Dealloc>(original), {action}};
  platform::replaceMethod(cls, deallocSelector(), reinterpret_cast<IMP>(hookedDealloc));
}
