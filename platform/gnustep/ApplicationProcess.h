#import <AppKit/AppKit.h>

/// A running application, known by its process and its bundle. The platform's own class answers
/// nothing to every question.
@interface ApplicationProcess : NSRunningApplication {
 @private
  pid_t _processIdentifier;
  NSString *_bundlePath;
}

- (id)initWithProcessIdentifier:(pid_t)processIdentifier bundlePath:(NSString *)bundlePath;

@end
