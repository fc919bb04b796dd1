#import "tests/support/agent/ScriptedAgent.h"

#import <objc/runtime.h>
#include <initializer_list>

#import "agent/KRVProxy.h"

// Makes the protocol known at run time (it is, once a class adopts it); the operations themselves
// are implemented by forwarding.
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wincomplete-implementation"
#pragma clang diagnostic ignored "-Wprotocol"
@interface KRVProxyAdopter : NSObject <KRVProxy>
@end
@implementation KRVProxyAdopter
@end
#pragma clang diagnostic pop

namespace {

const char *typesOfOperation(SEL selector) {
  for (Protocol *const protocol : { @protocol (KRVProxy), @protocol (KRVOperations) }) {
    const auto description = protocol_getMethodDescription(protocol, selector, YES, YES);
    if (description.types != nullptr) return description.types;
  }
  return nullptr;
}

/// An argument in JSON. Anything but a string or a number is represented by its class's name.
id recordable(NSInvocation *invocation, NSUInteger index) {
  const char *const type = [[invocation methodSignature] getArgumentTypeAtIndex:index];
  if (*type != '@') {
    BOOL flag = NO;
    [invocation getArgument:&flag atIndex:static_cast<NSInteger>(index)];
    return [NSNumber numberWithInt:flag];
  }
  id object = nil;
  [invocation getArgument:&object atIndex:static_cast<NSInteger>(index)];
  if (object == nil) return [NSNull null];
  if ([object isKindOfClass:[NSString class]] || [object isKindOfClass:[NSNumber class]]) {
    return object;
  }
  return NSStringFromClass([object class]);
}

bool pluginIsRegistered() {
  return [[NSPortNameServer systemDefaultPortNameServer] portForName:@"ContextMenuPlugin"
                                                              onHost:nil] != nil;
}

}  // namespace

@implementation ScriptedAgent

- (id)initWithScript:(Script *)script recordPath:(NSString *)recordPath {
  if ((self = [super init])) {
    _script = [script retain];
    _recordPath = [recordPath copy];
  }
  return self;
}

- (void)dealloc {
  [_script release];
  [_recordPath release];
  [super dealloc];
}

- (NSMethodSignature *)methodSignatureForSelector:(SEL)selector {
  const char *const types = typesOfOperation(selector);
  return types != nullptr ? [NSMethodSignature signatureWithObjCTypes:types]
                          : [super methodSignatureForSelector:selector];
}

- (void)forwardInvocation:(NSInvocation *)invocation {
  NSString *const operation = NSStringFromSelector([invocation selector]);
  [self recordOperation:operation invocation:invocation];
  id reply = actOut([_script nextEntryForOperation:operation]);
  [invocation setReturnValue:&reply];
}

- (void)recordOperation:(NSString *)operation invocation:(NSInvocation *)invocation {
  NSMutableArray *const arguments = [NSMutableArray array];
  const NSUInteger count = [[invocation methodSignature] numberOfArguments];
  for (NSUInteger i = 2; i < count; ++i) [arguments addObject:recordable(invocation, i)];
  NSDictionary *const record = @{
    @"operation" : operation,
    @"arguments" : arguments,
    @"pluginIsRegistered" : [NSNumber numberWithBool:pluginIsRegistered()]
  };
  NSMutableData *const line =
      [[[NSJSONSerialization dataWithJSONObject:record options:0
                                          error:nullptr] mutableCopy] autorelease];
  [line appendBytes:"\n" length:1];
  NSFileHandle *const file = [NSFileHandle fileHandleForWritingAtPath:_recordPath];
  [file seekToEndOfFile];
  [file writeData:line];
  [file closeFile];
}

@end
