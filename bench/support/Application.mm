#import "bench/support/Application.h"

#include <unistd.h>

#include <stdexcept>
#include <string_view>

/// Not declared in the platform's headers.
@interface NSMessagePort (Addresses)
+ (id)_portWithName:(const unsigned char *)socketPath listener:(BOOL)isOurs;
@end

namespace {

constexpr useconds_t kPollMicroseconds = 200;

/// The platform's folder of the registered names: one file a name, with the path of the port's
/// socket in its first line.
NSString *fileOfName(NSString *name) {
  NSString *const base64 =
      [[name dataUsingEncoding:NSUTF8StringEncoding] base64EncodedStringWithOptions:0];
  return [[NSTemporaryDirectory() stringByAppendingPathComponent:@"NSMessagePort/names"]
      stringByAppendingPathComponent:base64];
}

/// The root object of the program that registered the name, nil when none has. Works like a
/// look-up, but without the lock of the names: the platform's own look-up, repeated until the name
/// is registered, sometimes holds that lock when the starting program needs it, which then sleeps
/// 0.1 s. nil also while the program has not finished writing its name.
NSDistantObject *rootProxyWithoutLock(NSString *name) {
  NSData *const content = [NSData dataWithContentsOfFile:fileOfName(name)];
  const std::string_view text(static_cast<const char *>([content bytes]), [content length]);
  const auto end = text.find('\n');
  if (end == std::string_view::npos) return nil;
  const std::string socket(text.substr(0, end));
  NSPort *const port =
      [NSMessagePort _portWithName:reinterpret_cast<const unsigned char *>(socket.c_str())
                          listener:NO];
  NSConnection *const connection =
      [NSConnection connectionWithReceivePort:[[NSConnection defaultConnection] receivePort]
                                     sendPort:port];
  return [connection rootProxy];
}

}  // namespace

Program contextMenuApp() {
  return {CONTEXT_MENU_APP, @"ContextMenuPlugin", {{"LD_LIBRARY_PATH", ENGINE_FOLDER}}};
}

Program bareCopy() {
  return {BARE_COPY, @"Yardstick", {}};
}

Program emptyApplication() {
  return {EMPTY_APPLICATION, @"Yardstick", {}};
}

Application::Application(const Program &program)
    : program_(program),
      // The application has no tile on the desktop; a yardstick with one would have to create one
      // more window.
      process_(std::make_unique<ChildProcess>(
          std::vector<std::string>{program.path, "-GSSuppressAppIcon", "YES"},
          program.environment)) {}

Application::~Application() {
  process_.reset();
  // Otherwise the next program would count as registered from its start.
  @autoreleasepool {
    unlink([fileOfName(program_.connectionName) fileSystemRepresentation]);
  }
}

NSDistantObject *Application::rootProxy() {
  const double end = detail::secondsNow() + kWaitTimeoutSeconds;
  NSDistantObject *proxy = nil;
  while (proxy == nil && detail::secondsNow() < end) {
    @autoreleasepool {
      // Retained beyond this pool and autoreleased in the caller's.
      proxy = [rootProxyWithoutLock(program_.connectionName) retain];
    }
    if (proxy == nil) usleep(kPollMicroseconds);
  }
  if (proxy != nil) return [proxy autorelease];
  throw std::runtime_error(program_.path + " did not answer: " + process_->output());
}
