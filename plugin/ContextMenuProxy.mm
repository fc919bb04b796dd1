#import "plugin/ContextMenuProxy.h"

#import <objc/runtime.h>

#include <cstdint>
#include <cstring>

#import "agent/ResultDictionary.h"
#import "app/ContextMenuAppAppDelegate.h"
#import "text/LocalizedText.h"
#import "text/TextConversion.h"
#import "windows/Alerts.h"
#import "windows/RequestSuspension.h"
#import "windows/TabWindowController.h"
#import "windows/send/CopyLinkController.h"
#import "windows/send/DirectCopy.h"
#import "windows/send/SendAndCopyTabController.h"
#import "windows/send/SendFileController.h"
#import "windows/share/BrisvaleTabController.h"
#import "windows/share/InviteTabController.h"
#import "windows/share/PermissionTabController.h"

namespace {

ContextMenuAppAppDelegate *applicationDelegate() {
  return static_cast<ContextMenuAppAppDelegate *>([NSApp delegate]);
}

/// While one of these lives the delegate's flag says that the application is busy.
class ContextMenuFlagCleared {
 public:
  ContextMenuFlagCleared() { [applicationDelegate() setContextMenuFlag:NO]; }
  ~ContextMenuFlagCleared() { [applicationDelegate() setContextMenuFlag:YES]; }
  ContextMenuFlagCleared(const ContextMenuFlagCleared &) = delete;
  ContextMenuFlagCleared &operator=(const ContextMenuFlagCleared &) = delete;
};

void tellUser(NSString *message, NSString *informative) {
  runModally(alertWithTexts(message, informative));
  [applicationDelegate() hideMe];
}

/// What the user is told. These texts are fixed, unlike those of all other alerts of the
/// application, and a success is not followed by hiding, unlike in the context menu.
void report(CopyOutcome outcome) {
  switch (outcome) {
    case CopyOutcome::Copied:
      return;
    case CopyOutcome::Refused:
      tellUser(@"Unable to copy link at this time", nil);
      return;
    case CopyOutcome::NoReply:
      tellUser(@"Cannot connect to brisvale", @"Brisvale is down or check you internet connection");
      return;
  }
}

/// A flag as its byte came over the wire, where any value may stand: YES for all but 0. Read
/// through memory, because the compiler may take a BOOL for YES or NO already.
BOOL flagOf(const BOOL &received) {
  unsigned char byte = 0;
  std::memcpy(&byte, &received, sizeof byte);
  return byte == 0 ? NO : YES;
}

/// A tab position that travels as one signed byte in a BOOL's place.
std::int64_t positionOf(const BOOL &received) {
  signed char byte = 0;
  std::memcpy(&byte, &received, sizeof byte);
  return byte;
}

/// Tells a tab controller what its window is for.
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

/// The questions that a client's proxy asks before it sends an operation for the first time.
bool isQuestionOfTheWire(SEL selector) {
  return sel_isEqual(selector, @selector(methodSignatureForSelector:)) ||
         sel_isEqual(selector, @selector(respondsToSelector:)) ||
         sel_isEqual(selector, @selector(conformsToProtocol:));
}

bool isOperation(SEL selector) {
  const auto operation =
      protocol_getMethodDescription(@protocol(ContextMenuService), selector, YES, YES);
  return operation.name != nullptr;
}

/// Shows the window of a new controller in front of all applications; nil when it could not be
/// loaded.
NSWindow *windowInFront(NSWindowController *controller) {
  NSWindow *const window = loadedWindow(controller);
  [window orderFrontRegardless];
  return window;
}

/// Brings the application to the front, with the window that it has just opened.
void activateWith(NSWindow *window) {
  [NSApp activateIgnoringOtherApps:YES];
  [window makeKeyWindow];
  [applicationDelegate() setContextMenuFlag:NO];
}

}  // namespace

@implementation ContextMenuProxy

- (NSMethodSignature *)methodSignatureForSelector:(SEL)selector {
  if (!isOperation(selector) && !isQuestionOfTheWire(selector)) return nil;
  return [super methodSignatureForSelector:selector];
}

// The formatter takes the first anonymous argument for a part of the name.
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
  [applicationDelegate() conditionalFetchAddressBook];
  SendAndCopyTabController *const controller = [[SendAndCopyTabController alloc] init];
  [controller selectTabAtPosition:positionOf(tabPosition)];
  NSWindow *const window = windowInFront(controller);
  if (window == nil) return;
  NSString *const name = windowTitle(agent::stringOrNil(displayName));
  // NOLINTNEXTLINE(clang-analyzer-optin.osx.cocoa.*): a folder's name, in every language
  [window setTitle:flagOf(isMyDocs) ? @"MyDocs" : name ?: [window title]];
  activateWith(window);
  SendFileController *const sending = [controller sendFile];
  if (flagOf(isFolder)) {
    [sending setLabelForTab:localizedText(@"sendFolderLabelTextKey")];
    [[sending mailSubject] setStringValue:localizedText(@"defaultSubjectForSendFolderKey")];
  } else {
    [[sending mailSubject] setStringValue:localizedText(@"defaultSubjectForSendFileKey")];
  }
  NSString *const reference = agent::stringOrNil(item);
  give(sending, reference, flagOf(isFileId), flagOf(isFolder));
  // NOLINTNEXTLINE(clang-analyzer-osx.cocoa.RetainCount): it ends with its window
  give([controller sendCopyFile], reference, flagOf(isFileId), flagOf(isFolder));
}

// The formatter takes the first anonymous argument for a part of the name.
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
  [applicationDelegate() conditionalFetchAddressBook];
  BrisvaleTabController *const controller = [[BrisvaleTabController alloc] init];
  [controller selectTabAtPosition:positionOf(tabPosition)];
  NSWindow *const window = windowInFront(controller);
  if (window == nil) return;
  activateWith(window);
  NSString *const reference = agent::stringOrNil(item);
  give([controller givePermissionTab], reference, flagOf(isFileId));
  // NOLINTNEXTLINE(clang-analyzer-osx.cocoa.RetainCount): it ends with its window
  give([controller sendInviteTab], reference, flagOf(isFileId));
}

// The formatter takes the first anonymous argument for a part of the name.
// clang-format off
- (void)copyLinkToClipboard:(NSString *)item:(BOOL)isFolder:(BOOL)unused {
  // clang-format on
  (void)unused;
  const RequestSuspension suspension;
  closeOpenWindows();
  // An argument may be anything, also an object of the caller's process that claims to be a string.
  NSString *const serverId = agent::stringOrNil(item);
  CopyLinkController *const controller = [[[CopyLinkController alloc] init] autorelease];
  if (flagOf(isFolder)) [controller setIsFolder:YES];
  [controller setFilePath:serverId];
  [controller setIsFileId:YES];
  const ContextMenuFlagCleared busy;
  report(copyLinkDirectly(controller, serverId));
}

@end
