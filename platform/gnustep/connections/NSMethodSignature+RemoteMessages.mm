#import <Foundation/Foundation.h>

// On the Mac a method signature travels by copy. Here a client that asks a vended object for one
// gets a proxy, and through it could send the signature any message: a release too many ends the
// process. A client needs to read the type and nothing else.
//
// Replacing the platform's own method is the point.
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"
@implementation NSMethodSignature (RemoteMessages)

- (NSMethodSignature *)methodSignatureForSelector:(SEL)selector {
  const bool isTheType = sel_isEqual(selector, @selector(methodType));
  return isTheType ? [[self class] instanceMethodSignatureForSelector:selector] : nil;
}

@end
