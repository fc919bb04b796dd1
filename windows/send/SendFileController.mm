#import "windows/send/SendFileController.h"

#import "agent/BVDataModelController.h"
#import "agent/ResultDictionary.h"
#import "text/LocalizedText.h"
#import "text/TextConversion.h"
#import "windows/Alerts.h"
#import "windows/Controls.h"
#import "windows/MessageKeys.h"
#import "windows/Recipients.h"
#import "windows/RequestSuspension.h"
#import "windows/send/ItemKind.h"

namespace {

/// The service keeps this many UTF-16 units of a subject.
constexpr NSUInteger kSubjectUnits = 80;

}  // namespace

@implementation SendFileController

@synthesize mailSubject;
@synthesize filePath;
@synthesize isFileId;
@synthesize isFolder;
@synthesize ourMainWindow;
@synthesize modalWindow;
@synthesize modalWindowText;

- (void)dealloc {
  [filePath release];
  [super dealloc];
}

- (void)awakeFromNib {
  [self prepareRecipients:mailList message:mailContent];
  [noOfDownloads selectItemAtIndex:0];
  setSpokenName(mailList, @"recipientsLabelTextKey");
  setSpokenName(mailSubject, @"subjectLabelTextKey");
  setSpokenName(mailContent, @"messageLabelTextKey");
  setSpokenName(noOfDownloads, @"downloadsLabelTextKey");
  setSpokenName(spinner, @"busyDescriptionKey");
}

- (void)setLabelForTab:(NSString *)label {
  [sendFileTab setLabel:label];
  [[sendFileTab tabView] setNeedsDisplay:YES];
}

#pragma mark - Actions

- (IBAction)sendMail:(id)sender {
  (void)sender;
  const RequestSuspension suspension;
  NSString *const recipients = [mailList stringValue];
  NSString *const entered = [mailSubject stringValue];
  NSString *const message = [[mailContent textStorage] string];
  if (NSString *const invalid = firstInvalidRecipient(recipients)) {
    [self showAlert:invalidRecipientAlert(invalid)];
    return;
  }
  // By the kind that the opener has set; the disk is asked later.
  NSString *const subject =
      [entered length] > 0 ? entered : localizedText([self texts].defaultSubject);
  NSString *const escapedSubject = percentEscaped(firstUnits(subject, kSubjectUnits));
  NSString *const escapedMessage = percentEscaped(message);
  // Before the connection is made, which alone may take 15 seconds.
  showBusy(spinner);
  NSDictionary *const reply = [self replyForRecipients:recipients
                                               subject:escapedSubject
                                               message:escapedMessage];
  [self show:reply];
  [spinner setHidden:YES];
}

- (IBAction)cancelSendMail:(id)sender {
  (void)sender;
  [self closeWindow];
}

- (BOOL)checkBoxState:(NSButton *)box {
  return isChecked(box);
}

- (void)disconnectFromWindow {
  [spinner stopAnimation:nil];
  spinner = nil;
  mailList = nil;
  mailContent = nil;
  isCopyMe = nil;
  isNotifyMe = nil;
  isAskForEmail = nil;
  noOfDownloads = nil;
  sendFileTab = nil;
  [self setMailSubject:nil];
  [super disconnectFromWindow];
}

#pragma mark - NSTextViewDelegate

- (BOOL)textView:(NSTextView *)message doCommandBySelector:(SEL)command {
  return doCommandInMessage(message, command, self, @selector(cancelSendMail:));
}

#pragma mark - Sending

- (NSDictionary *)replyForRecipients:(NSString *)recipients
                             subject:(NSString *)subject
                             message:(NSString *)message {
  BVDataModelController *const agent = [[[BVDataModelController alloc] init] autorelease];
  NSString *const path = [self filePath];
  const BOOL notify = [self checkBoxState:isNotifyMe];
  const BOOL askForEmail = [self checkBoxState:isAskForEmail];
  const BOOL copyMe = [self checkBoxState:isCopyMe];
  NSString *const downloads = chosenDownloads(noOfDownloads);
  const BOOL isId = [self isFileId];
  // A server id does not tell a file from a folder: the opener has set isFolder then.
  if (!isId) [self setIsFolder:isFolderOnDisk(path)];
  // clang-format off
  return [self isFolder]
             ? [agent sendFolder:path:notify:askForEmail:downloads
                               :recipients:subject:message:isId:copyMe]
             : [agent sendFile:path:notify:askForEmail:downloads
                             :recipients:subject:message:isId:copyMe];
  // clang-format on
}

- (const ItemTexts &)texts {
  return textsFor([self isFolder] ? ItemKind::Folder : ItemKind::File);
}

- (void)show:(NSDictionary *)reply {
  switch (agent::kindOfActionReply(reply)) {
    case agent::ReplyKind::Succeeded:
      [self showSuccessModalWindow:[self texts].sent];
      return;
    case agent::ReplyKind::Refused:
      NSLog(@"Error sending:%@", singleLine(agent::errorMessage(reply)));
      [self showAlert:alertWithTexts(formatted(localizedText([self texts].unableToSend)),
                                     localizedText([self texts].notAvailable))];
      return;
    case agent::ReplyKind::Unreachable:
      NSLog(@"Getting null data from rest API(machine offline or server down)");
      [self showAlert:cannotConnectAlert()];
      return;
  }
}

- (void)killModalWindow:(NSTimer *)timer {
  [super killModalWindow:timer];
  // In this window there is nothing left to do after a success.
  [ourMainWindow close];
}

@end
