// The yardstick of launch and memory: an application that only registers a name.
#import <AppKit/AppKit.h>

@interface YardstickDelegate : NSObject <NSApplicationDelegate> {
 @private
  NSConnection *_connection;
}
@end

@implementation YardstickDelegate

- (void)applicationDidFinishLaunching:(NSNotification *)notification {
  (void)notification;
  // Not the program's own name: under that one the platform offers the services of every
  // application.
  _connection = [[NSConnection alloc] init];
  [_connection setRootObject:self];
  [_connection registerName:@"Yardstick"];
}

@end

int main(int argc, char *argv[]) {
  return NSApplicationMain(argc, const_cast<const char **>(argv));
}
