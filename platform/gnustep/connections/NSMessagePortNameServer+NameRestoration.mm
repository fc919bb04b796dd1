#import <Foundation/Foundation.h>

#import "platform/gnustep/connections/RegisteredNames.h"
#include "platform/gnustep/connections/TemporaryFolder.h"
#import "platform/gnustep/runtime/MethodReplacement.h"

// Tells RegisteredNames which names this process registers and removes, and creates the folder of
// names again when it is missing at a look-up: the platform creates it once in a process and raises
// from then on. Nothing is created in a folder that belongs to another user, or is a link,
// meanwhile.

@interface NSMessagePortNameServer (Files)
+ (NSString *)_pathForName:(NSString *)name;
@end

@interface NSMessagePortNameServer (NameRestoration)
@end

namespace {

constinit platform::ReplacedMethod<BOOL(NSPort *, NSString *)> platformRegisterPort;
constinit platform::ReplacedMethod<BOOL(NSPort *, NSString *)> platformRemovePort;
constinit platform::ReplacedMethod<BOOL(NSString *)> platformRemoveName;
constinit platform::ReplacedMethod<NSDistributedLock *()> platformFileLock;
constinit platform::ReplacedMethod<id()> platformNewPort;

/// Answers nil, as the platform does where there is no temporary folder.
id newPort(id cls, SEL selector) {
  return platform::temporaryFolder().problem.empty() ? platformNewPort(cls, selector) : nil;
}

/// Not in +load, because the message initialises the class, which makes the temporary folder.
void guardNewPorts() {
  platformNewPort.install(object_getClass([NSMessagePort class]), @selector(new), newPort);
}

BOOL registerPort(id server, SEL selector, NSPort *port, NSString *name) {
  if ([NSThread isMainThread]) guardNewPorts();
  const BOOL isRegistered = platformRegisterPort(server, selector, port, name);
  if (isRegistered && [NSThread isMainThread]) {
    [[RegisteredNames sharedNames] addName:name ofPort:port];
  }
  return isRegistered;
}

BOOL removePort(id server, SEL selector, NSPort *port, NSString *name) {
  if ([NSThread isMainThread]) [[RegisteredNames sharedNames] removeName:name ofPort:port];
  return platformRemovePort(server, selector, port, name);
}

BOOL removeName(id server, SEL selector, NSString *name) {
  if ([NSThread isMainThread]) [[RegisteredNames sharedNames] removeName:name ofPort:nil];
  return platformRemoveName(server, selector, name);
}

/// Answers nil, with which the platform goes on without a lock, where the names cannot be trusted.
NSDistributedLock *fileLock(id cls, SEL selector) {
  const platform::TemporaryFolder temporary = platform::temporaryFolder();
  if (!temporary.problem.empty()) return nil;
  NSString *const folder = [[cls _pathForName:nil] stringByDeletingLastPathComponent];
  if (folder != nil && ![[NSFileManager defaultManager] fileExistsAtPath:folder]) {
    platform::makePortFolders(temporary.path);
  }
  return platformFileLock(cls, selector);
}

}  // namespace

@implementation NSMessagePortNameServer (NameRestoration)

+ (void)load {
  platformRegisterPort.install(self, @selector(registerPort:forName:), registerPort);
  platformRemovePort.install(self, @selector(removePort:forName:), removePort);
  platformRemoveName.install(self, @selector(removePortForName:), removeName);
  platformFileLock.install(object_getClass(self), sel_registerName("_fileLock"), fileLock);
}

@end
