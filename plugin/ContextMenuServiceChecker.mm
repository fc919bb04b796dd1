#import "plugin/ContextMenuServiceChecker.h"

namespace {

void refuse(SEL selector) {
  [NSException raise:NSInvalidArgumentException
              format:@"%@ is none of the operations", NSStringFromSelector(selector)];
}

}  // namespace

// The operations are forwarded and not implemented. GNUstep's runtime knows the protocol because
// this class adopts it.
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wprotocol"
@implementation ContextMenuServiceChecker
#pragma clang diagnostic pop

- (id)initWithService:(NSObject<ContextMenuService> *)service {
  if ([self target] != nil) refuse(_cmd);
  return [super initWithTarget:service protocol:@protocol(ContextMenuService)];
}

- (id)initWithTarget:(NSObject *)target protocol:(Protocol *)protocol {
  (void)target;
  (void)protocol;
  refuse(_cmd);
  return self;
}

#pragma mark - Messages that every proxy answers by itself

- (id)retain {
  return self;
}

- (oneway void)release {
}

- (id)autorelease {
  return self;
}

// It is never deallocated.
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wobjc-missing-super-calls"
- (void)dealloc {
}
#pragma clang diagnostic pop

- (id)performSelector:(SEL)selector {
  refuse(selector);
  return nil;
}

- (id)performSelector:(SEL)selector withObject:(id)object {
  (void)object;
  refuse(selector);
  return nil;
}

- (id)performSelector:(SEL)selector withObject:(id)object withObject:(id)other {
  (void)object;
  (void)other;
  refuse(selector);
  return nil;
}

@end
