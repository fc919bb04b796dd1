#pragma once

#import <objc/runtime.h>

/// The one way in which a method of the platform is replaced where the former implementation is
/// still called. Where it is not, a category simply implements the method again (README.md).
///
///   namespace {
///   constinit platform::ReplacedMethod<void(NSRect)> platformDrawRect;
///   }
///
///   @implementation NSView (Frame)
///
///   + (void)load {
///     platformDrawRect.install(self, @selector(drawRect:), @selector(drawRectAndFrame:));
///   }
///
///   - (void)drawRectAndFrame:(NSRect)rect {
///     platformDrawRect(self, _cmd, rect);
///     NSFrameRect([self bounds]);
///   }
namespace platform {

/// Whether the class implements the method itself. Superclasses do not count.
bool hasOwnMethod(Class cls, SEL selector);

/// Makes `replacement` the implementation of the method for the class and for all subclasses that
/// do not override it, also for those that are in use already. Superclasses are not changed where
/// the class inherits the method. Returns the former implementation; nullptr, without an effect,
/// when the class is Nil or has no such method. For a class method pass the metaclass,
/// object_getClass(). Sends no message, so it may be called from any +load. Any thread, but calls
/// of the method that begin meanwhile may get either implementation.
IMP replaceMethod(Class cls, SEL selector, IMP replacement);

/// A replaced method, which is called like a function to get the former implementation. The
/// signature has no self and no selector: BOOL(NSEvent *). To be declared constinit, because +load
/// may run before the constructors of static objects.
template <class Signature>
class ReplacedMethod;

template <class Result, class... Arguments>
class ReplacedMethod<Result(Arguments...)> {
 public:
  using Function = Result (*)(id, SEL, Arguments...);

  constexpr ReplacedMethod() = default;

  /// As replaceMethod. False, without an effect, when there is no such method or when it has been
  /// replaced through this object before.
  bool install(Class cls, SEL selector, Function replacement) {
    Method const method = class_getInstanceMethod(cls, selector);
    if (method == nullptr || former_ != nullptr) return false;
    // Before the replacement can be called.
    former_ = reinterpret_cast<Function>(method_getImplementation(method));
    replaceMethod(cls, selector, reinterpret_cast<IMP>(replacement));
    return true;
  }

  /// The same with a method of the class, usually of a category, as the replacement. It gets the
  /// replaced method's selector as _cmd.
  bool install(Class cls, SEL selector, SEL replacement) {
    Method const method = class_getInstanceMethod(cls, replacement);
    return method != nullptr &&
           install(cls, selector, reinterpret_cast<Function>(method_getImplementation(method)));
  }

  bool isInstalled() const { return former_ != nullptr; }

  /// Calls the former implementation. Only when installed.
  Result operator()(id self, SEL selector, Arguments... arguments) const {
    return former_(self, selector, arguments...);
  }

 private:
  Function former_ = nullptr;
};

}  // namespace platform
