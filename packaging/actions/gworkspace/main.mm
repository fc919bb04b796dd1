// The service's entries in the Services menu, where GWorkspace's users find them. The menu shows
// them for whatever is selected; for an item that they do not apply to they show a message.

#import <AppKit/AppKit.h>

@interface BrisvaleActions : NSObject
- (void)copyLink:(NSPasteboard *)pasteboard userData:(NSString *)data error:(NSString **)error;
- (void)send:(NSPasteboard *)pasteboard userData:(NSString *)data error:(NSString **)error;
- (void)share:(NSPasteboard *)pasteboard userData:(NSString *)data error:(NSString **)error;
@end

namespace {

/// In the bundle's description, so that it is the one that was installed or built with it.
NSString *program() {
  return [[[NSBundle mainBundle] infoDictionary] objectForKey:@"ActionProgram"];
}

/// No session manager ends a provider of services at logout. The menu starts it again.
constexpr NSTimeInterval kIdleSeconds = 60;

NSTimeInterval endOfIdleness = 0;

/// Does not wait for the end: the file manager waits for the reply of a service.
void run(NSString *verb, NSPasteboard *pasteboard) {
  endOfIdleness = [NSDate timeIntervalSinceReferenceDate] + kIdleSeconds;
  NSArray *const files = [pasteboard propertyListForType:NSFilenamesPboardType];
  if (![files isKindOfClass:[NSArray class]] || [files count] == 0) return;
  // As with the context menu, only the first item is used.
  [NSTask launchedTaskWithLaunchPath:program()
                           arguments:[NSArray arrayWithObjects:@"run", verb,
                                                               [files objectAtIndex:0], nil]];
}

}  // namespace

@implementation BrisvaleActions

- (void)copyLink:(NSPasteboard *)pasteboard userData:(NSString *)data error:(NSString **)error {
  (void)data;
  (void)error;
  run(@"copy-link", pasteboard);
}

- (void)send:(NSPasteboard *)pasteboard userData:(NSString *)data error:(NSString **)error {
  (void)data;
  (void)error;
  run(@"send", pasteboard);
}

- (void)share:(NSPasteboard *)pasteboard userData:(NSString *)data error:(NSString **)error {
  (void)data;
  (void)error;
  run(@"share", pasteboard);
}

@end

int main() {
  @autoreleasepool {
    // Retained by the platform from here on.
    NSRegisterServicesProvider([[[BrisvaleActions alloc] init] autorelease], @"BrisvaleActions");
  }
  endOfIdleness = [NSDate timeIntervalSinceReferenceDate] + kIdleSeconds;
  while ([NSDate timeIntervalSinceReferenceDate] < endOfIdleness) {
    @autoreleasepool {
      NSDate *const end = [NSDate dateWithTimeIntervalSinceReferenceDate:endOfIdleness];
      [[NSRunLoop currentRunLoop] runMode:NSDefaultRunLoopMode beforeDate:end];
    }
  }
  return 0;
}
