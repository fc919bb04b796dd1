#import "platform/gnustep/ApplicationProcess.h"

@implementation ApplicationProcess

- (id)initWithProcessIdentifier:(pid_t)processIdentifier bundlePath:(NSString *)bundlePath {
  if ((self = [super init])) {
    _processIdentifier = processIdentifier;
    _bundlePath = [bundlePath copy];
  }
  return self;
}

- (void)dealloc {
  [_bundlePath release];
  [super dealloc];
}

- (pid_t)processIdentifier {
  return _processIdentifier;
}

- (NSString *)bundleIdentifier {
  // The platform keeps one bundle object a path and reads its description once.
  return [[NSBundle bundleWithPath:_bundlePath] bundleIdentifier];
}

- (NSURL *)bundleURL {
  return [NSURL fileURLWithPath:_bundlePath];
}

- (NSString *)localizedName {
  return [[_bundlePath lastPathComponent] stringByDeletingPathExtension];
}

@end
