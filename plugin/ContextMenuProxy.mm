#import "plugin/ContextMenuProxy.h"

#import <objc/runtime.h>

#include <initializer_list>

#import "agent/ResultDictionary.h"
#import "app/ContextMenuAppAppDelegate.h"
#import "plugin/ServingPause.h"
#import "send/Alerts.h"
#import "send/CopyLinkController.h"

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

/// How a direct copy can end.
enum class DirectCopyEnd { Copied, Refused, NoReply };

DirectCopyEnd endOfDirectCopy(NSDictionary *reply, NSString *clipboardStatus) {
  if ([reply count] == 0) return DirectCopyEnd::NoReply;
  return [clipboardStatus isEqualToString:@"0"] ? DirectCopyEnd::Copied : DirectCopyEnd::Refused;
}

void tellUser(NSString *message, NSString *informative) {
  runModally(alertWithTexts(message, informative));
  [applicationDelegate() hideMe];
}

/// What is logged and what the user is told. These texts are fixed, unlike those of all other
/// alerts of the application.
void report(DirectCopyEnd end) {
  switch (end) {
    case DirectCopyEnd::Copied:
      NSLog(@"Link copied successfully.");
      return;
    case DirectCopyEnd::Refused:
      NSLog(@"Unable to copy link at this time");
      tellUser(@"Unable to copy link at this time", nil);
      return;
    case DirectCopyEnd::NoReply:
      NSLog(@"Getting null data from rest API(machine offline or server down)");
      tellUser(@"Cannot connect to brisvale", @"Brisvale is down or check you internet connection");
      return;
  }
}

/// The questions that a client's proxy asks before it sends an operation for the first time.
bool isQuestionOfTheWire(SEL selector) {
  return sel_isEqual(selector, @selector(methodSignatureForSelector:)) ||
         sel_isEqual(selector, @selector(respondsToSelector:)) ||
         sel_isEqual(selector, @selector(conformsToProtocol:));
}

bool isOperation(SEL selector) {
  for (const BOOL required : {YES, NO}) {
    if (protocol_getMethodDescription(@protocol(ContextMenuService), selector, required, YES)
            .name != nullptr) {
      return true;
    }
  }
  return false;
}

}  // namespace

@implementation ContextMenuProxy

- (NSMethodSignature *)methodSignatureForSelector:(SEL)selector {
  if (!isOperation(selector) && !isQuestionOfTheWire(selector)) return nil;
  return [super methodSignatureForSelector:selector];
}

// clang-format off: it takes the first anonymous argument for a part of the name.
- (void)copyLinkToClipboard:(NSString *)item:(BOOL)isFolder:(BOOL)unused {
  // clang-format on
  (void)unused;
  const ServingPause othersWait(self);
  [[NSNotificationCenter defaultCenter] postNotificationName:@"newInstanceofWindowOpened"
                                                      object:nil];
  // An argument may be anything, also an object of the caller's process that claims to be a string.
  NSString *const serverId = agent::stringOrNil(item);
  CopyLinkController *const controller = [[[CopyLinkController alloc] init] autorelease];
  if (isFolder) [controller setIsFolder:YES];
  [controller setFilePath:serverId];
  [controller setIsFileId:YES];
  const ContextMenuFlagCleared busy;
  NSDictionary *const reply = [controller getCopyLink:serverId:YES:NO:@"-1"];
  NSString *const status = [controller pasteToClipboard:reply];
  report(endOfDirectCopy(reply, status));
}

@end
