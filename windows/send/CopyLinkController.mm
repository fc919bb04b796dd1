#import "windows/send/CopyLinkController.h"

#import "agent/BVDataModelController.h"
#import "agent/ResultDictionary.h"
#import "text/LocalizedText.h"
#import "windows/Alerts.h"
#import "windows/Controls.h"
#import "windows/RequestSuspension.h"
#import "windows/ResultSheet.h"
#import "windows/send/CopyOutcome.h"
#import "windows/send/ItemKind.h"

@implementation CopyLinkController

@synthesize filePath;
@synthesize isFileId;
@synthesize isFolder;
@synthesize copyLinkTab;
@synthesize ourMainWindow;
@synthesize modalWindow;
@synthesize modalWindowText;

- (id)init {
  if ((self = [super init])) {
    isFileId = NO;
    isFolder = NO;
  }
  return self;
}

- (void)dealloc {
  [filePath release];
  [copyLinkTab release];
  [ourMainWindow release];
  [super dealloc];
}

- (void)awakeFromNib {
  [noOfDownloads selectItemAtIndex:0];
}

#pragma mark - Actions

- (IBAction)sendCopyLink:(id)sender {
  (void)sender;
  const RequestSuspension suspension;
  // A server id says nothing about the kind of the item: whoever opened the window knows.
  if (![self isFileId]) [self setIsFolder:isFolderOnDisk([self filePath])];
  const BOOL notify = [self checkBoxState:isNotifyMe];
  const BOOL askForMail = [self checkBoxState:isAskForMail];
  NSString *const downloads = chosenDownloads(noOfDownloads);
  showBusy(spinGear);
  NSDictionary *const reply = [self getCopyLink:[self filePath]:notify:askForMail:downloads];
  [self show:outcomeOfCopy(reply, [self pasteToClipboard:reply])];
  [spinGear setHidden:YES];
}

- (IBAction)cancelSendCopyLink:(id)sender {
  (void)sender;
  // Closing ends the window's controller, which is the owner of this one.
  [[self retain] autorelease];
  [ourMainWindow close];
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
  [self setOurMainWindow:nil];
  [self setModalWindow:nil];
  [self setModalWindowText:nil];
}

#pragma mark - Outcome

- (void)show:(CopyOutcome)outcome {
  NSAlert *alert = nil;
  switch (outcome) {
    case CopyOutcome::Copied:
      [self showSuccessModalWindow:@"linkCopiedSuccessMessageTextKey"];
      return;
    case CopyOutcome::Refused:
      alert = alertWithTexts(formatted(localizedText(@"unableCopyLinkMessagetextKey")),
                             formatted(localizedText(@"unableCopyLinkInformativeKey")));
      break;
    case CopyOutcome::NoReply:
      alert = cannotConnectAlert();
      break;
  }
  showAsSheet(alert, ourMainWindow, self);
}

- (void)showSuccessModalWindow:(NSString *)key {
  showSuccess({modalWindow, modalWindowText, ourMainWindow}, self, key);
}

- (void)killModalWindow:(NSTimer *)timer {
  endSuccess(timer);
  // In this window a success is also the end of the work.
  [ourMainWindow close];
}

#pragma mark - The link

// The formatter takes the first anonymous argument for a part of the name.
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
  NSPasteboard *const pasteboard = [NSPasteboard generalPasteboard];
  [pasteboard clearContents];
  if (agent::kindOfLinkReply(reply) != agent::ReplyKind::Succeeded) {
    return agent::errorMessage(reply);
  }
  NSString *const link = agent::stringOrNil([reply objectForKey:agent::kValueKey]);
  // A reply without a link is a failed write: logged, and not reported otherwise.
  NSArray *const objects = link == nil ? [NSArray array] : [NSArray arrayWithObject:link];
  const BOOL written = [pasteboard writeObjects:objects];
  NSLog(@"copy success = %d", written ? 1 : 0);
  return agent::errorText(reply);
}

@end
