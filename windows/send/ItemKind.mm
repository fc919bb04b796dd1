#import "windows/send/ItemKind.h"

BOOL isFolderOnDisk(NSString *path) {
  BOOL isDirectory = NO;
  if (path == nil || ![[NSFileManager defaultManager] fileExistsAtPath:path
                                                           isDirectory:&isDirectory]) {
    return NO;
  }
  if (isDirectory) NSLog(@"is folder");
  return isDirectory;
}
