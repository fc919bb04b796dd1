#import <Foundation/Foundation.h>

// On the Mac a method signature is sent by copy. Here a client gets a proxy for one and could send
// it any message: an extra release would crash this process. A client needs the type and nothing
// else.
//
// Replacing the platform's own method is the point.
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"
@implementation NSMethodSignature (RemoteMessages)

- (NSMethodSignature *)methodSignatureForSelector:(SEL)selector {
  const bool isTheType = sel_isEqual(selector, @selector(methodType));
  return isTheType ? [[self class] instanceMethodSignatureForSelector:selector] : nil;
}

@end
