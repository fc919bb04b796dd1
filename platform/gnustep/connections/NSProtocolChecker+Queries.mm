#import <Foundation/Foundation.h>
#import <objc/runtime.h>

// A client's proxy asks what an object can do before it sends it the first message. The Mac's
// protocol checkers answer that by their protocol. The platform's has no method signature for these
// messages, so that they are refused, and raises when it is asked in its own process.
//
// Replacing the platform's own methods is the point.
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"

namespace {

bool isQuery(SEL selector) {
  return sel_isEqual(selector, @selector(methodSignatureForSelector:)) ||
         sel_isEqual(selector, @selector(respondsToSelector:)) ||
         sel_isEqual(selector, @selector(conformsToProtocol:));
}

/// What declares a message: the protocol, or one that it adopts; {} for neither.
objc_method_description declaration(Protocol *protocol, SEL selector) {
  if (protocol == nil) return {};
  const auto own = protocol_getMethodDescription(protocol, selector, YES, YES);
  if (own.name != nullptr) return own;
  objc_method_description inherited = {};
  unsigned count = 0;
  Protocol **const adopted = protocol_copyProtocolList(protocol, &count);
  for (unsigned i = 0; i < count && inherited.name == nullptr; ++i) {
    inherited = declaration(adopted[i], selector);
  }
  free(adopted);
  return inherited;
}

}  // namespace

@implementation NSProtocolChecker (Queries)

- (NSMethodSignature *)methodSignatureForSelector:(SEL)selector {
  if (selector == nullptr) return nil;
  const char *types = declaration([self protocol], selector).types;
  if (types == nullptr && isQuery(selector)) {
    types = method_getTypeEncoding(class_getInstanceMethod([NSProxy class], selector));
  }
  return types == nullptr ? nil : [NSMethodSignature signatureWithObjCTypes:types];
}

- (BOOL)respondsToSelector:(SEL)selector {
  if (selector == nullptr) return NO;
  return isQuery(selector) || (declaration([self protocol], selector).name != nullptr &&
                               [[self target] respondsToSelector:selector]);
}

- (BOOL)conformsToProtocol:(Protocol *)protocol {
  return protocol != nil && [self protocol] != nil &&
         protocol_conformsToProtocol([self protocol], protocol);
}

@end
