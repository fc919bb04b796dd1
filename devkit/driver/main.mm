// desktop_driver select PATH
//     selects an item in GWorkspace, in the viewer that it opens by itself
// desktop_driver menu
//     has the application pop up its context menu at the pointer, and returns when the menu has
//     been dismissed and its action is done
//
// Does for demonstrations and tests what no key or click does, through the connections that
// applications of this platform have under their own names.
#import <Foundation/Foundation.h>

#include <cstdio>
#include <optional>
#include <string_view>
#include <vector>

#include "devkit/base/Arguments.h"
#import "devkit/client/RemoteObject.h"

@protocol FileManagerInUse
- (NSArray *)selectedPaths;
- (BOOL)selectFile:(NSString *)path inFileViewerRootedAtPath:(NSString *)root;
@end

@protocol ContextMenuShowing
- (void)showContextMenu;
@end

// Only a protocol that a class of this program adopts is known at run time, as it must be to be set
// on a proxy.
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wprotocol"
#pragma clang diagnostic ignored "-Wincomplete-implementation"
@interface ProtocolAdopter : NSObject <FileManagerInUse, ContextMenuShowing>
@end
@implementation ProtocolAdopter
@end
#pragma clang diagnostic pop

namespace devkit {
namespace {

/// For an application to start on a busy machine, and to reply.
constexpr Timeouts kTimeouts = {std::chrono::seconds(60), std::chrono::seconds(10)};
constexpr int kSelectionAttempts = 300;
constexpr NSTimeInterval kPauseSeconds = 0.1;

/// Calls the application of this name. `call` takes the proxy and returns why it failed.
template <class Call>
std::optional<Failure> withApplication(NSString *name, Protocol *protocol, Call call) {
  const char *const who = [name UTF8String];
  const auto found = lookUp(name, protocol, who, kTimeouts);
  if (const auto *failure = std::get_if<Failure>(&found)) return *failure;
  id const proxy = std::get<id>(found);
  @try {
    return call(proxy);
  } @catch (NSException *exception) {
    return failureOf(exception, proxy, who);
  }
}

std::optional<Failure> selectInFileManager(NSString *path) {
  return withApplication(@"GWorkspace", @protocol(FileManagerInUse),
                         [&](id<FileManagerInUse> fileManager) -> std::optional<Failure> {
                           // While it starts, a viewer that it restores may still select something
                           // else.
                           for (int attempt = 0; attempt < kSelectionAttempts; ++attempt) {
                             [fileManager selectFile:path inFileViewerRootedAtPath:@"/"];
                             [NSThread sleepForTimeInterval:kPauseSeconds];
                             NSString *const selected =
                                 [[fileManager selectedPaths] componentsJoinedByString:@"\n//"];
                             if ([selected isEqualToString:path]) return std::nullopt;
                           }
                           return Failure{Exit::Failed, "GWorkspace does not select the item"};
                         });
}

std::optional<Failure> popUpMenu() {
  return withApplication(@"ContextMenuApp", @protocol(ContextMenuShowing),
                         [](id<ContextMenuShowing> application) -> std::optional<Failure> {
                           [application showContextMenu];
                           return std::nullopt;
                         });
}

std::optional<Failure> perform(const std::vector<std::string> &arguments) {
  if (arguments.size() == 1 && arguments[0] == "menu") return popUpMenu();
  if (arguments.size() == 2 && arguments[0] == "select") {
    return selectInFileManager([NSString stringWithUTF8String:arguments[1].c_str()]);
  }
  return Failure{Exit::WrongUsage, "usage: desktop_driver select PATH, or desktop_driver menu"};
}

}  // namespace
}  // namespace devkit

int main(int argc, char *argv[]) {
  @autoreleasepool {
    const auto failure = devkit::perform(devkit::originalArguments(argc, argv));
    if (!failure) return 0;
    std::fprintf(stderr, "desktop_driver: %s\n", failure->reason.c_str());
    return static_cast<int>(failure->code);
  }
}
