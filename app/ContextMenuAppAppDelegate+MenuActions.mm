#import "agent/ResultDictionary.h"
#import "app/ContextMenuAppAppDelegate.h"
#import "text/LocalizedText.h"
#import "text/TextConversion.h"
#import "windows/Alerts.h"
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

/// The folder's path without the slash at its end. Removes the last character whatever it is: a
/// folder action treats every item as a folder, and a file then has no id.
NSString *trimmed(NSString *path) {
  return [path substringToIndex:[path length] - 1];
}

/// The title of a window about the item at `path`.
NSString *titleOf(NSString *path) {
  return windowTitle([path lastPathComponent]) ?: @"";
}

/// What every action does first: closes all open windows, even if the action fails later. Returns
/// the path of the first selected item; "" when the file manager does not answer.
NSString *closeWindowsAndReadSelection(ContextMenuAppAppDelegate *delegate) {
  closeOpenWindows();
  NSArray *const selection = [[delegate getSelectedFilesList] autorelease];
  return [selection count] == 0 ? @"" : [selection objectAtIndex:0];
}

/// The item's server id; nil, and a line in the log, when it has none.
NSString *serverId(ContextMenuAppAppDelegate *delegate, ItemKind kind, NSString *path) {
  NSString *found = @"";
  // clang-format off
  const int code = kind == ItemKind::Folder ? [delegate GetFolderIdByPath:path:nullptr:&found]
                                            : [delegate GetFileIdByPath:path:nullptr:&found];
  // clang-format on
  if (code == 0 && [found length] > 0) return found;
  NSLog(@"error getting fileId");
  return nil;
}

void tellUser(ContextMenuAppAppDelegate *delegate, NSAlert *alert) {
  runModally(alert);
  [delegate hideMe];
}

/// The id for the three actions that open a window; nil, and an alert, when there is none. (Copy
/// Link has an alert of its own.)
NSString *serverIdOrAlert(ContextMenuAppAppDelegate *delegate, ItemKind kind, NSString *path) {
  NSString *const found = serverId(delegate, kind, path);
  if (found == nil) {
    tellUser(delegate, alertWithTexts(localizedText(@"veldaneBrisvaleMessageTextKey"),
                                      localizedText(@"failedToGetFileIdInformativeTextKey")));
  }
  return found;
}

/// What the user is told of a direct copy. Deliberately without the informative text that the
/// copy-link tab shows when the service refuses.
void report(agent::ReplyKind outcome) {
  switch (outcome) {
    case agent::ReplyKind::Succeeded:
      return;
    case agent::ReplyKind::Refused:
      runModally(alertWithTexts(formatted(localizedText(@"unableCopyLinkMessagetextKey")), nil));
      return;
    case agent::ReplyKind::Unreachable:
      runModally(cannotConnectAlert());
      return;
  }
}

/// Opens the send window with the texts for the kind of item. nil when there is no window.
SendAndCopyTabController *openSendWindow(NSString *title, ItemKind kind) {
  SendAndCopyTabController *const controller =
      openWindow<SendAndCopyTabController>({.title = title});
  [[[controller sendFile] mailSubject] setStringValue:localizedText(textsFor(kind).defaultSubject)];
  [[[controller sendAndCopyTab] selectedTabViewItem]
      setLabel:localizedText(textsFor(kind).tabLabel)];
  return controller;
}

/// Sets the item of a tab controller.
template <class TabController>
void giveItem(TabController *controller, NSString *itemId) {
  [controller setFilePath:itemId];
  [controller setIsFileId:YES];
}
template <class TabController>
void giveFolder(TabController *controller, NSString *itemId) {
  giveItem(controller, itemId);
  [controller setIsFolder:YES];
}

}  // namespace

@implementation ContextMenuAppAppDelegate (MenuActions)

- (BOOL)isInSyncedFolder:(NSString *)path {
  // clang-format off
  return [self containsString:path:[self syncedFilePath]];
  // clang-format on
}

#pragma mark - Copy Link

- (IBAction)CopyLink:(id)sender {
  (void)sender;
  withRequestsSuspended([&] { [self copyLinkToItem:closeWindowsAndReadSelection(self)]; });
}

- (void)copyLinkToItem:(NSString *)selected {
  const BOOL isFolder = isFolderOnDisk(selected);
  if (![self isInSyncedFolder:selected]) {
    [self showError];
    return;
  }
  [self copyLinkTo:isFolder ? trimmed(selected) : selected isFolder:isFolder];
  // After a success too, unlike the copy for the plug-in: the menu is the application's own.
  [self hideMe];
}

- (void)copyLinkTo:(NSString *)path isFolder:(BOOL)isFolder {
  CopyLinkController *const controller = [[[CopyLinkController alloc] init] autorelease];
  if (isFolder) [controller setIsFolder:YES];
  NSString *const itemId = serverId(self, isFolder ? ItemKind::Folder : ItemKind::File, path);
  if (itemId == nil) {
    // Deliberately the same alert as for a link that could not be copied.
    runModally(alertWithTexts(localizedText(@"unableCopyLinkMessagetextKey"), nil));
    return;
  }
  giveItem(controller, itemId);
  report(copyLinkDirectly(controller, path));
}

#pragma mark - Send File

- (IBAction)SendFile:(id)sender {
  (void)sender;
  withRequestsSuspended([&] { [self sendSelectedFile:closeWindowsAndReadSelection(self)]; });
}

- (void)sendSelectedFile:(NSString *)selected {
  if (![self isInSyncedFolder:selected]) {
    [self showError];
    return;
  }
  // Unchanged even for a folder, for which the library then has no id.
  NSString *const itemId = serverIdOrAlert(self, ItemKind::File, selected);
  if (itemId == nil) return;
  SendAndCopyTabController *const controller = openSendWindow(titleOf(selected), ItemKind::File);
  giveItem([controller sendCopyFile], itemId);
  giveItem([controller sendFile], itemId);
}

#pragma mark - Send Folder

- (IBAction)SendFolder:(id)sender {
  (void)sender;
  withRequestsSuspended([&] { [self sendSelectedFolder:closeWindowsAndReadSelection(self)]; });
  NSLog(@"Send Folder action..");
}

- (void)sendSelectedFolder:(NSString *)selected {
  if (![self isInSyncedFolder:selected]) {
    [self showError];
    return;
  }
  NSString *const folder = trimmed(selected);
  NSString *const itemId = serverIdOrAlert(self, ItemKind::Folder, folder);
  if (itemId == nil) return;
  NSString *const homeId = agent::stringOrNil([[self homeFolderInfo] objectForKey:@"homefolder"]);
  NSString *const title = [itemId isEqualToString:homeId] ? @"MyDocs" : titleOf(folder);
  SendAndCopyTabController *const controller = openSendWindow(title, ItemKind::Folder);
  giveFolder([controller sendCopyFile], itemId);
  giveFolder([controller sendFile], itemId);
}

#pragma mark - Share Folder

- (IBAction)ShareFolder:(id)sender {
  (void)sender;
  withRequestsSuspended([&] { [self shareSelectedFolder:closeWindowsAndReadSelection(self)]; });
  NSLog(@"Share Folder action..");
}

- (void)shareSelectedFolder:(NSString *)selected {
  NSString *const ownArea = [NSString stringWithFormat:@"%@/MyDocs", [self syncedFilePath]];
  // With an alert, unlike the other actions, which only log an item outside the synced folder.
  // clang-format off
  if (![self containsString:selected:ownArea]) {
    // clang-format on
    tellUser(self,
             alertWithTexts(localizedText(@"doNotHavePermissionForThisFolderMessageTextKey"), nil));
    return;
  }
  NSString *const folder = trimmed(selected);
  NSString *const itemId = serverIdOrAlert(self, ItemKind::Folder, folder);
  if (itemId == nil) return;
  BrisvaleTabController *const controller =
      openWindow<BrisvaleTabController>({.title = titleOf(folder)});
  giveItem([controller givePermissionTab], itemId);
  giveItem([controller sendInviteTab], itemId);
}

@end
