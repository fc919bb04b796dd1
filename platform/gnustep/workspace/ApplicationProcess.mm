#import "platform/gnustep/workspace/ApplicationProcess.h"

#include <mutex>

namespace {

/// The bundle identifier in Info.plist, cached by path, because reading it takes most of the time.
NSString *identifierOfBundle(NSString *path) {
  static std::mutex mutex;
  static NSMutableDictionary *const identifiers = [[NSMutableDictionary alloc] init];
  const std::lock_guard<std::mutex> lock(mutex);
  id known = [identifiers objectForKey:path];
  if (known == nil) {
    known = [[NSBundle bundleWithPath:path] bundleIdentifier] ?: (id)[NSNull null];
    [identifiers setObject:known forKey:path];
  }
  return known == [NSNull null] ? nil : [[known retain] autorelease];
}

}  // namespace

@implementation ApplicationProcess

- (id)initWithEntry:(const platform::ApplicationProcessEntry &)entry {
  if ((self = [super init])) {
    // Given back in dealloc.
    _entry = new platform::ApplicationProcessEntry(entry);
    _bundlePath = [[[NSFileManager defaultManager]
        stringWithFileSystemRepresentation:entry.bundlePath.data()
                                    length:entry.bundlePath.size()] copy];
  }
  return self;
}

- (void)dealloc {
  delete _entry;
  [_bundlePath release];
  [super dealloc];
}

- (BOOL)isEqual:(id)other {
  if (![other isKindOfClass:[ApplicationProcess class]]) return NO;
  ApplicationProcess *const process = other;
  return process->_entry->pid == _entry->pid &&
         (process->_bundlePath == _bundlePath ||
          [process->_bundlePath isEqualToString:_bundlePath]);
}

- (NSUInteger)hash {
  return static_cast<NSUInteger>(_entry->pid);
}

- (pid_t)processIdentifier {
  return _entry->pid;
}

- (BOOL)isStillRunning {
  return platform::isStillRunning(*_entry);
}

- (NSString *)bundleIdentifier {
  return _bundlePath == nil ? nil : identifierOfBundle(_bundlePath);
}

- (NSURL *)bundleURL {
  return _bundlePath == nil ? nil : [NSURL fileURLWithPath:_bundlePath];
}

- (NSString *)localizedName {
  return [[_bundlePath lastPathComponent] stringByDeletingPathExtension];
}

@end
