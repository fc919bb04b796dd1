#import <Foundation/Foundation.h>
#import <objc/runtime.h>

#import "platform/gnustep/RegisteredNames.h"
#include "platform/gnustep/TemporaryFolder.h"

// Tells RegisteredNames what this process registers and what it gives back. And makes the folder of
// names again for whoever looks for one when it is gone: the platform makes it once in the life of
// a process, and raises ever after.

@interface NSMessagePortNameServer (Files)
+ (NSString *)_pathForName:(NSString *)name;
@end

@interface NSMessagePortNameServer (LostNames)
@end

namespace {

using RegisterPort = BOOL (*)(id, SEL, NSPort *, NSString *);
using RemovePort = BOOL (*)(id, SEL, NSPort *, NSString *);
using RemoveName = BOOL (*)(id, SEL, NSString *);
using FileLock = NSDistributedLock *(*)(id, SEL);

RegisterPort platformRegisterPort = nullptr;
RemovePort platformRemovePort = nullptr;
RemoveName platformRemoveName = nullptr;
FileLock platformFileLock = nullptr;

template <class Function>
Function replace(Method method, Function ours) {
  return reinterpret_cast<Function>(method_setImplementation(method, reinterpret_cast<IMP>(ours)));
}

BOOL registerPort(id server, SEL selector, NSPort *port, NSString *name) {
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

NSDistributedLock *fileLock(id cls, SEL selector) {
  NSString *const folder = [[cls _pathForName:nil] stringByDeletingLastPathComponent];
  if (folder != nil && ![[NSFileManager defaultManager] fileExistsAtPath:folder]) {
    const platform::TemporaryFolder temporary = platform::temporaryFolder();
    if (temporary.problem.empty()) platform::makePortFolders(temporary.path);
  }
  return platformFileLock(cls, selector);
}

}  // namespace

@implementation NSMessagePortNameServer (LostNames)

+ (void)load {
  platformRegisterPort =
      replace(class_getInstanceMethod(self, @selector(registerPort:forName:)), registerPort);
  platformRemovePort =
      replace(class_getInstanceMethod(self, @selector(removePort:forName:)), removePort);
  platformRemoveName =
      replace(class_getInstanceMethod(self, @selector(removePortForName:)), removeName);
  platformFileLock = replace(class_getClassMethod(self, sel_registerName("_fileLock")), fileLock);
}

@end
