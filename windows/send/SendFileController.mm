#import "windows/send/SendFileController.h"

#include <optional>

#import "agent/BVDataModelController.h"
#import "agent/ResultDictionary.h"
#import "app/ContextMenuAppAppDelegate.h"
#import "text/LocalizedText.h"
#import "text/TextConversion.h"
#import "windows/Alerts.h"
#import "windows/Controls.h"
#import "windows/MessageKeys.h"
#import "windows/Recipients.h"
#import "windows/RequestSuspension.h"
#import "windows/ResultSheet.h"
#import "windows/send/ItemKind.h"

namespace {

/// The service keeps this many UTF-16 units of a subject.
constexpr NSUInteger kSubjectUnits = 80;

/// The texts that differ between a file and a folder.
struct KindTexts {
  NSString *defaultSubject;
  NSString *sent;
  NSString *unable;
  NSString *notAvailable;
};

const KindTexts kFileTexts = {@"defaultSubjectForSendFileKey", @"fileSentSuccessMessageTextKey",
                              @"unableToSendFileMessageTextKey",
                              @"fileNotAvailableInformativeTextKey"};
const KindTexts kFolderTexts = {
    @"defaultSubjectForSendFolderKey", @"folderSentSuccessMessageTextKey",
    @"unableToSendFolderMessageTextKey", @"folderNotAvailableInformativeTextKey"};

const KindTexts &textsFor(BOOL isFolder) {
  return isFolder ? kFolderTexts : kFileTexts;
}

}  // namespace

@implementation SendFileController

@synthesize mailSubject;
@synthesize filePath;
@synthesize isFileId;
@synthesize isFolder;
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
  [super dealloc];
}

- (void)awakeFromNib {
  setTokenizingCharacters(mailList);
  [noOfDownloads selectItemAtIndex:0];
  [mailList setDelegate:self];
  [mailContent setDelegate:self];
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
    showAsSheet(invalidRecipientAlert(invalid), ourMainWindow, self);
    return;
  }
  // By the kind that the opener gave, before the disk is asked.
  NSString *const subject =
      [entered length] > 0 ? entered : localizedText(textsFor([self isFolder]).defaultSubject);
  NSString *const escapedSubject = percentEscaped(firstUnits(subject, kSubjectUnits));
  NSString *const escapedMessage = percentEscaped(message);
  // Already now: the connection is made next, which alone may take 15 seconds.
  showBusy(spinner);
  NSDictionary *const reply = [self replyForRecipients:recipients
                                               subject:escapedSubject
                                               message:escapedMessage];
  [self show:reply];
  [spinner setHidden:YES];
}

- (IBAction)cancelSendMail:(id)sender {
  (void)sender;
  // Closing ends the window's controller, which is the owner of this one.
  [[self retain] autorelease];
  [ourMainWindow close];
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
  [self setOurMainWindow:nil];
  [self setModalWindow:nil];
  [self setModalWindowText:nil];
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
  // A server id says nothing about the kind of the item: whoever opened the window knows.
  if (!isId) [self setIsFolder:isFolderOnDisk(path)];
  // The formatter takes the first anonymous argument for a part of the name.
  // clang-format off
  return [self isFolder]
             ? [agent sendFolder:path:notify:askForEmail:downloads
                               :recipients:subject:message:isId:copyMe]
             : [agent sendFile:path:notify:askForEmail:downloads
                             :recipients:subject:message:isId:copyMe];
  // clang-format on
}

- (void)show:(NSDictionary *)reply {
  const KindTexts &texts = textsFor([self isFolder]);
  NSAlert *alert = nil;
  switch (agent::kindOfActionReply(reply)) {
    case agent::ReplyKind::Succeeded:
      [self showSuccessModalWindow:texts.sent];
      return;
    case agent::ReplyKind::Refused:
      NSLog(@"Error sending:%@", singleLine(agent::errorMessage(reply)));
      alert =
          alertWithTexts(formatted(localizedText(texts.unable)), localizedText(texts.notAvailable));
      break;
    case agent::ReplyKind::Unreachable:
      NSLog(@"Getting null data from rest API(machine offline or server down)");
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

#pragma mark - NSTokenFieldDelegate

- (NSArray *)tokenField:(NSTokenField *)field
    completionsForSubstring:(NSString *)substring
               indexOfToken:(NSInteger)tokenIndex
        indexOfSelectedItem:(NSInteger *)selectedIndex {
  (void)field;
  (void)tokenIndex;
  // No completion is selected beforehand: what is typed is never replaced unasked.
  if (selectedIndex != nullptr) *selectedIndex = -1;
  return completions(substring);
}

- (id)tokenField:(NSTokenField *)field representedObjectForEditingString:(NSString *)editingString {
  (void)field;
  return addressOfEntry(editingString);
}

- (BOOL)validateEmail:(NSString *)address {
  return isValidAddress(address);
}

@end
