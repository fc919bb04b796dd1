#import "tests/e2e/WireMessage.h"

#include "tests/support/Strings.h"

std::string sendOverWire(id proxy, SEL selector, const char *types, id argument) {
  NSInvocation *const message =
      [NSInvocation invocationWithMethodSignature:[NSMethodSignature signatureWithObjCTypes:types]];
  [message setTarget:proxy];
  [message setSelector:selector];
  if (std::string(types).size() > 3) [message setArgument:&argument atIndex:2];
  @try {
    [proxy forwardInvocation:message];
    return "";
  } @catch (NSException *exception) {
    return text([exception name]);
  }
}
