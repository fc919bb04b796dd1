#import "tests/e2e/VendedService.h"

// Makes the protocol known at run time, as it must be to be set on a proxy.
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wprotocol"
#pragma clang diagnostic ignored "-Wincomplete-implementation"
@interface ContextMenuServiceAdopter : NSObject <ContextMenuService>
@end
@implementation ContextMenuServiceAdopter
@end
#pragma clang diagnostic pop

id<ContextMenuService> vendedService(bool withProtocol) {
  id const proxy = [NSConnection rootProxyForConnectionWithRegisteredName:@"ContextMenuPlugin"
                                                                     host:nil];
  if (withProtocol) [proxy setProtocolForProxy:@protocol(ContextMenuService)];
  return proxy;
}
