#import "devkit/client/ContextMenuCall.h"

#import "agent/AgentIdentity.h"
#include "devkit/base/Paths.h"
#include "devkit/base/Text.h"
#include "devkit/client/Item.h"
#import "devkit/client/RemoteObject.h"
#import "plugin/ContextMenuService.h"

/// The one operation of the agent that the client needs.
@protocol HomeFolderInformation
- (NSDictionary *)getHomeDirectoryInfo;
@end

/// Never instantiated. With this runtime a protocol exists at run time only when a class of the
/// program adopts it; without that, giving the protocol to a proxy has no effect.
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wprotocol"
@interface KnownProtocols : NSObject <ContextMenuService, HomeFolderInformation>
@end
@implementation KnownProtocols
@end
#pragma clang diagnostic pop

namespace devkit {
namespace {

NSString *const kServiceName = @"ContextMenuPlugin";
constexpr auto kApplication = "the application";
constexpr auto kAgent = "the agent";

NSString *string(const std::string &text) {
  const auto valid = validUtf8(text);
  return [[[NSString alloc] initWithBytes:valid.data()
                                   length:valid.size()
                                 encoding:NSUTF8StringEncoding] autorelease];
}

/// The engine is not asked for the home folder: its id is the account's and comes from the agent.
std::variant<std::string, Failure> homeId(const Timeouts &timeouts) {
  const auto found =
      lookUp(agent::kConnectionName, @protocol(HomeFolderInformation), kAgent, timeouts);
  if (const auto *failure = std::get_if<Failure>(&found))
    return Failure{Exit::NoId, failure->reason + ", and only it knows the id of MyDocs"};
  const id proxy = std::get<id>(found);
  @try {
    NSString *value = [[proxy getHomeDirectoryInfo] objectForKey:@"homefolder"];
    if ([value isKindOfClass:[NSString class]] && [value length] > 0)
      return std::string([value UTF8String]);
  } @catch (NSException *exception) {
    return Failure{Exit::NoId, failureOf(exception, proxy, kAgent).reason};
  }
  return Failure{Exit::NoId, "the agent gives no id for MyDocs"};
}

std::variant<std::string, Failure> serverId(const LocalItem &item, const Timeouts &timeouts) {
  return item.isHome ? homeId(timeouts) : engineId(item);
}

void call(id<ContextMenuService> application, const Request &request, const LocalItem &item,
          NSString *serverId) {
  const BOOL isFolder = item.kind == Kind::Folder ? YES : NO;
  const BOOL tab = static_cast<BOOL>(request.tab);
  NSString *name = string(item.name);
  switch (request.verb) {
    case Verb::CopyLink:
      [application copyLinkToClipboard:serverId:isFolder:NO];
      break;
    case Verb::Send:
      [application LaunchSendCopyLinkTab:serverId:name:(item.isHome ? YES : NO):isFolder:tab:YES];
      break;
    case Verb::Share:
      [application LaunchShareFolderTab:serverId:name:NO:tab:YES];
      break;
    case Verb::Status:
    case Verb::Help:
      break;
  }
}

}  // namespace

std::optional<Failure> perform(const Request &request) {
  const Timeouts timeouts = {request.wait, request.timeout};
  if (request.verb == Verb::Status) {
    const auto found = lookUp(kServiceName, @protocol(ContextMenuService), kApplication, timeouts);
    const auto *failure = std::get_if<Failure>(&found);
    return failure ? std::optional(*failure) : std::nullopt;
  }

  const auto found = findItem(request.path, SyncedFolder(syncedFolderPath()));
  if (const auto *failure = std::get_if<Failure>(&found)) return *failure;
  const auto &item = std::get<LocalItem>(found);
  if (request.verb == Verb::Share && item.kind == Kind::File)
    return Failure{Exit::WrongUsage, shown(request.path) + " is a file; only folders are shared"};

  const auto identified = serverId(item, timeouts);
  if (const auto *failure = std::get_if<Failure>(&identified)) return *failure;

  const auto application =
      lookUp(kServiceName, @protocol(ContextMenuService), kApplication, timeouts);
  if (const auto *failure = std::get_if<Failure>(&application)) return *failure;
  const id proxy = std::get<id>(application);
  @try {
    call(proxy, request, item, string(std::get<std::string>(identified)));
  } @catch (NSException *exception) {
    return failureOf(exception, proxy, kApplication);
  }
  return std::nullopt;
}

}  // namespace devkit
