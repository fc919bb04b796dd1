#import "plugin/ContextMenuProxy.h"

#include <cstdint>
#include <cstring>

#import "agent/ResultDictionary.h"
#import "text/LocalizedText.h"
#import "text/TextConversion.h"
#import "windows/Alerts.h"
#import "windows/ApplicationState.h"
#import "windows/RequestSuspension.h"
#import "windows/TabWindowController.h"
#import "windows/send/CopyLinkController.h"
#import "windows/send/ItemKind.h"
#import "windows/send/SendAndCopyTabController.h"
#import "windows/send/SendFileController.h"
#import "windows/share/BrisvaleTabController.h"
#import "windows/share/InviteTabController.h"
#import "windows/share/PermissionTabController.h"

namespace {

/// Clears the context-menu flag for as long as one of these lives.
class ContextMenuFlagCleared {
 public:
  ContextMenuFlagCleared() { [applicationState() setContextMenuFlag:NO]; }
  ~ContextMenuFlagCleared() { [applicationState() setContextMenuFlag:YES]; }
  ContextMenuFlagCleared(const ContextMenuFlagCleared &) = delete;
  ContextMenuFlagCleared &operator=(const ContextMenuFlagCleared &) = delete;
};

void tellUser(NSString *message, NSString *informative) {
  runModally(alertWithTexts(message, informative));
  [applicationState() hideMe];
}

/// What the user is told of a direct copy. These texts are fixed, unlike those of all other alerts
/// of the application, and a success is not followed by hiding, unlike in the context menu.
void report(agent::ReplyKind outcome) {
  switch (outcome) {
    case agent::ReplyKind::Succeeded:
      return;
    case agent::ReplyKind::Refused:
      tellUser(@"Unable to copy link at this time", nil);
      return;
    case agent::ReplyKind::Unreachable:
      tellUser(@"Cannot connect to brisvale", @"Brisvale is down or check you internet connection");
      return;
  }
}

/// A flag that was received as one byte of any value: YES for all but 0. Read through memory,
/// because the compiler may assume that a BOOL is YES or NO.
BOOL flagOf(const BOOL &received) {
  unsigned char byte = 0;
  std::memcpy(&byte, &received, sizeof byte);
  return byte == 0 ? NO : YES;
}

/// A tab position, which is sent as one signed byte in the place of a BOOL.
std::int64_t positionOf(const BOOL &received) {
  signed char byte = 0;
  std::memcpy(&byte, &received, sizeof byte);
  return byte;
}

/// Sets the item of a tab controller.
template <class TabController>
void give(TabController *controller, NSString *item, BOOL isFileId) {
  [controller setIsFileId:isFileId];
  [controller setFilePath:item];
}
template <class TabController>
void give(TabController *controller, NSString *item, BOOL isFileId, BOOL isFolder) {
  [controller setIsFileId:isFileId];
  [controller setIsFolder:isFolder];
  [controller setFilePath:item];
}

}  // namespace

@implementation ContextMenuProxy

// clang-format off
- (void)LaunchSendCopyLinkTab:(NSString *)item
                             :(NSString *)displayName
                             :(BOOL)isMyDocs
                             :(BOOL)isFolder
                             :(BOOL)tabPosition
                             :(BOOL)isFileId {
  // clang-format on
  const RequestSuspension suspension;
  closeOpenWindows();
  [applicationState() conditionalFetchAddressBook];
  NSString *const name = windowTitle(agent::stringOrNil(displayName));
  SendAndCopyTabController *const controller =
      openWindow<SendAndCopyTabController>({.tab = positionOf(tabPosition),
                                            .title = flagOf(isMyDocs) ? @"MyDocs" : name,
                                            .isInFrontOfAllApplications = true});
  SendFileController *const sending = [controller sendFile];
  const ItemTexts &texts = textsFor(flagOf(isFolder) ? ItemKind::Folder : ItemKind::File);
  // The interface file has the label for a file.
  if (flagOf(isFolder)) [sending setLabelForTab:localizedText(texts.tabLabel)];
  [[sending mailSubject] setStringValue:localizedText(texts.defaultSubject)];
  NSString *const reference = agent::stringOrNil(item);
  give(sending, reference, flagOf(isFileId), flagOf(isFolder));
  give([controller sendCopyFile], reference, flagOf(isFileId), flagOf(isFolder));
}

// clang-format off
- (void)LaunchShareFolderTab:(NSString *)item
                            :(NSString *)unusedDisplayName
                            :(BOOL)unused
                            :(BOOL)tabPosition
                            :(BOOL)isFileId {
  // clang-format on
  (void)unusedDisplayName;
  (void)unused;
  const RequestSuspension suspension;
  closeOpenWindows();
  [applicationState() conditionalFetchAddressBook];
  BrisvaleTabController *const controller = openWindow<BrisvaleTabController>(
      {.tab = positionOf(tabPosition), .isInFrontOfAllApplications = true});
  NSString *const reference = agent::stringOrNil(item);
  give([controller givePermissionTab], reference, flagOf(isFileId));
  give([controller sendInviteTab], reference, flagOf(isFileId));
}

// clang-format off
- (void)copyLinkToClipboard:(NSString *)item:(BOOL)isFolder:(BOOL)unused {
  // clang-format on
  (void)unused;
  const RequestSuspension suspension;
  closeOpenWindows();
  // An argument may be anything, even an object of the caller's process that claims to be a string.
  NSString *const serverId = agent::stringOrNil(item);
  CopyLinkController *const controller = [[[CopyLinkController alloc] init] autorelease];
  if (flagOf(isFolder)) [controller setIsFolder:YES];
  [controller setFilePath:serverId];
  [controller setIsFileId:YES];
  const ContextMenuFlagCleared busy;
  report(copyLinkDirectly(controller, serverId));
}

@end
