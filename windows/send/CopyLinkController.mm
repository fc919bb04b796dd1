#import "windows/send/CopyLinkController.h"

#import "agent/BVDataModelController.h"
#import "text/LocalizedText.h"
#import "windows/Alerts.h"
#import "windows/Controls.h"
#import "windows/RequestSuspension.h"
#import "windows/send/ItemKind.h"

namespace {

/// Clears the general pasteboard and writes the reply's link to it, if there is one. The only place
/// where the reply to a request for a link is judged.
agent::ReplyKind pasteLink(NSDictionary *reply) {
  NSPasteboard *const pasteboard = [NSPasteboard generalPasteboard];
  [pasteboard clearContents];
  const agent::ReplyKind kind = agent::kindOfLinkReply(reply);
  if (kind != agent::ReplyKind::Succeeded) return kind;
  NSString *const link = agent::stringOrNil([reply objectForKey:agent::kValueKey]);
  // A reply without a link is a failed write: logged, and not reported otherwise.
  NSArray *const objects = link == nil ? [NSArray array] : [NSArray arrayWithObject:link];
  const BOOL written = [pasteboard writeObjects:objects];
  NSLog(@"copy success = %d", written ? 1 : 0);
  return kind;
}

}  // namespace

@implementation CopyLinkController

@synthesize filePath;
@synthesize isFileId;
@synthesize isFolder;
@synthesize copyLinkTab;
@synthesize ourMainWindow;
@synthesize modalWindow;
@synthesize modalWindowText;

- (void)dealloc {
  [filePath release];
  [copyLinkTab release];
  [ourMainWindow release];
  [super dealloc];
}

- (void)awakeFromNib {
  [noOfDownloads selectItemAtIndex:0];
  setSpokenName(noOfDownloads, @"downloadsLabelTextKey");
  setSpokenName(spinGear, @"busyDescriptionKey");
}

#pragma mark - Actions

- (IBAction)sendCopyLink:(id)sender {
  (void)sender;
  const RequestSuspension suspension;
  // A server id does not tell a file from a folder: the opener has set isFolder then.
  if (![self isFileId]) [self setIsFolder:isFolderOnDisk([self filePath])];
  const BOOL notify = [self checkBoxState:isNotifyMe];
  const BOOL askForMail = [self checkBoxState:isAskForMail];
  NSString *const downloads = chosenDownloads(noOfDownloads);
  showBusy(spinGear);
  NSDictionary *const reply = [self getCopyLink:[self filePath]:notify:askForMail:downloads];
  [self show:pasteLink(reply)];
  [spinGear setHidden:YES];
}

- (IBAction)cancelSendCopyLink:(id)sender {
  (void)sender;
  [self closeWindow];
}

- (BOOL)checkBoxState:(NSButton *)box {
  return isChecked(box);
}

- (void)disconnectFromWindow {
  [spinGear stopAnimation:nil];
  spinGear = nil;
  isNotifyMe = nil;
  isAskForMail = nil;
  noOfDownloads = nil;
  [self setCopyLinkTab:nil];
  [super disconnectFromWindow];
}

#pragma mark - Outcome

- (void)show:(agent::ReplyKind)outcome {
  switch (outcome) {
    case agent::ReplyKind::Succeeded:
      [self showSuccessModalWindow:@"linkCopiedSuccessMessageTextKey"];
      return;
    case agent::ReplyKind::Refused:
      [self showAlert:alertWithTexts(formatted(localizedText(@"unableCopyLinkMessagetextKey")),
                                     formatted(localizedText(@"unableCopyLinkInformativeKey")))];
      return;
    case agent::ReplyKind::Unreachable:
      [self showAlert:cannotConnectAlert()];
      return;
  }
}

- (void)killModalWindow:(NSTimer *)timer {
  [super killModalWindow:timer];
  // In this window there is nothing left to do after a success.
  [ourMainWindow close];
}

#pragma mark - The link

// clang-format off
- (NSDictionary *)getCopyLink:(NSString *)unusedPath
                             :(BOOL)notify
                             :(BOOL)askForMail
                             :(NSString *)downloads {
  (void)unusedPath;
  BVDataModelController *const agent = [[[BVDataModelController alloc] init] autorelease];
  NSString *const path = [self filePath];
  const BOOL isId = [self isFileId];
  return [self isFolder] ? [agent getLinkForFolder:path:notify:askForMail:downloads:isId]
                         : [agent getLinkForFile:path:notify:askForMail:downloads:isId];
}
// clang-format on

- (NSString *)pasteToClipboard:(NSDictionary *)reply {
  return pasteLink(reply) == agent::ReplyKind::Succeeded ? agent::errorText(reply)
                                                         : agent::errorMessage(reply);
}

@end

agent::ReplyKind copyLinkDirectly(CopyLinkController *controller, NSString *path) {
  const agent::ReplyKind kind = pasteLink([controller getCopyLink:path:YES:NO:@"-1"]);
  switch (kind) {
    case agent::ReplyKind::Succeeded:
      NSLog(@"Link copied successfully.");
      break;
    case agent::ReplyKind::Refused:
      NSLog(@"Unable to copy link at this time");
      break;
    case agent::ReplyKind::Unreachable:
      NSLog(@"Getting null data from rest API(machine offline or server down)");
      break;
  }
  return kind;
}
