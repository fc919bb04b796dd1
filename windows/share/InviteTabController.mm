#import "windows/share/InviteTabController.h"

#import "agent/AgentRequest.h"
#import "agent/BVDataModelController.h"
#import "text/LocalizedText.h"
#import "text/TextConversion.h"
#import "windows/Alerts.h"
#import "windows/ApplicationState.h"
#import "windows/Controls.h"
#import "windows/MessageKeys.h"
#import "windows/Recipients.h"
#import "windows/RequestSuspension.h"
#import "windows/share/AccessLevel.h"
#import "windows/share/SharedWith.h"

namespace {

/// The service keeps this many UTF-16 units of a message.
constexpr NSUInteger kMessageUnits = 800;

/// Read only: too little access is easier to correct than too much.
constexpr NSInteger kDefaultAccessIndex = 1;

/// The alert that names people who cannot be invited. Also for those whom the service refused.
NSAlert *notColleaguesAlert(NSString *people) {
  return alertWithTexts(
      formatted(localizedText(@"invalidEmployeeErrorMessageTextKey")),
      formatted(localizedText(@"invalidEmployeeErrorInformativeTextFormatKey"), people));
}

}  // namespace

@implementation InviteTabController

@synthesize filePath;
@synthesize isFileId;
@synthesize isFolder;
@synthesize ourMainWindow;
@synthesize modalWindow;
@synthesize modalWindowText;

- (void)dealloc {
  [filePath release];
  [ourMainWindow release];
  [super dealloc];
}

- (void)awakeFromNib {
  [self prepareRecipients:mailList message:mailContent];
  [accessType selectItemAtIndex:kDefaultAccessIndex];
  setSpokenName(mailList, @"recipientsLabelTextKey");
  setSpokenName(accessType, @"accessLabelTextKey");
  setSpokenName(mailContent, @"messageLabelTextKey");
  setSpokenName(spinGear, @"busyDescriptionKey");
}

#pragma mark - Actions

- (IBAction)sendInvite:(id)sender {
  (void)sender;
  withRequestsSuspended([&] { [self inviteRecipients]; });
}

- (void)inviteRecipients {
  NSArray *const recipients = recipientsIn([mailList stringValue]);
  NSString *const message =
      percentEscaped(firstUnits([[mailContent textStorage] string], kMessageUnits));
  // All recipients are checked before the first is granted anything.
  if (NSAlert *const objection = [self objectionTo:recipients]) {
    [self showAlert:objection];
    return;
  }
  showBusy(spinGear);
  [self grantAccessTo:recipients message:message];
  [spinGear setHidden:YES];
}

/// The alert for the first recipient who cannot be invited, nil when all can.
- (NSAlert *)objectionTo:(NSArray *)recipients {
  for (NSString *recipient in recipients) {
    if (!isValidAddress(recipient)) return invalidRecipientAlert(recipient);
    if (![self isEmployee:recipient]) {
      NSAlert *const alert = notColleaguesAlert(recipient);
      [alert addButtonWithTitle:localizedText(@"alertOkButtonTitleKey")];
      return alert;
    }
  }
  return nil;
}

- (void)grantAccessTo:(NSArray *)recipients message:(NSString *)message {
  const AccessLevel level = levelWithTitle([accessType titleOfSelectedItem]);
  const BOOL mayWrite = level == AccessLevel::ReadWrite;
  BVDataModelController *const agent = [[[BVDataModelController alloc] init] autorelease];
  NSMutableArray *const refused = [NSMutableArray array];
  for (NSString *recipient in recipients) {
    NSString *const path = [self filePath];
    const BOOL isId = [self isFileId];
    // clang-format off
    NSDictionary *const reply =
        [agent grantAccess:recipient:path:YES:mayWrite:mayWrite:YES:isId:YES:message];
    // clang-format on
    switch (agent::kindOfActionReply(reply)) {
      case agent::ReplyKind::Unreachable:
        NSLog(@"Getting null data from rest API(machine offline or server down)");
        [self showAlert:cannotConnectAlert()];
        return;
      case agent::ReplyKind::Refused:
        [refused addObject:recipient];
        break;
      case agent::ReplyKind::Succeeded:
        [self readPersonIn:reply];
        break;
    }
  }
  [self showGrantsRefusedTo:refused];
}

/// Makes the row of a person who has been granted access. Deliberately dropped: the list is loaded
/// again instead, but the agent is asked for the person all the same.
- (void)readPersonIn:(NSDictionary *)reply {
  NSDictionary *const person = agent::nilOnException([&]() -> id {
    return agent::localCopyOfTexts(@[ @"userfname", @"userlname", @"useremail" ],
                                   [reply objectForKey:agent::kValueKey]);
  });
  NSString *const address = agent::stringIn(person, @"useremail");
  SharedWith *const row = [[[SharedWith alloc] init] autorelease];
  [row setPersonName:displayName(agent::stringIn(person, @"userfname"),
                                 agent::stringIn(person, @"userlname"), address)];
  [row setUseremail:address];
  [row setPermission:[accessType titleOfSelectedItem]];
}

- (void)showGrantsRefusedTo:(NSArray *)refused {
  NSNotificationCenter *const center = [NSNotificationCenter defaultCenter];
  if ([refused count] == 0) {
    [center postNotificationName:@"UserAddedToShareFolder" object:nil];
    [spinGear setHidden:YES];
    [self showSuccessModalWindow:@"folderSharedSuccessMessageTextKey"];
    [mailList setStringValue:@""];
  } else {
    [self showAlert:notColleaguesAlert([refused componentsJoinedByString:@", "])];
    [spinGear setHidden:YES];
  }
  // Deliberately twice after a complete success: the list is loaded again when the sheet shows.
  [center postNotificationName:@"UserAddedToShareFolder" object:nil];
}

- (void)disconnectFromWindow {
  [spinGear stopAnimation:nil];
  spinGear = nil;
  mailList = nil;
  mailContent = nil;
  accessType = nil;
  sendFile = nil;
  iarrayController = nil;
  inviteTab = nil;
  [super disconnectFromWindow];
}

#pragma mark - Colleagues

- (BOOL)isEmployee:(NSString *)address {
  id<ApplicationState> const state = applicationState();
  if ([[state employeeContacts] containsObject:address]) return YES;
  BVDataModelController *const agent = [[[BVDataModelController alloc] init] autorelease];
  NSDictionary *const reply = [agent getUserInfo:address:NO];
  if ([reply count] == 0) return YES;
  NSDictionary *const user = agent::nilOnException(
      [&]() -> id { return agent::localCopyOfDictionary([reply objectForKey:agent::kValueKey]); });
  // The connection broke during the copying, which counts as an unreachable agent.
  if (user == nil) return YES;
  if (!agent::flagIn(user, @"accountemployee")) return NO;
  [[state addressBookForShare]
      addObject:[NSString stringWithFormat:@"%@<%@>", agent::stringIn(user, @"name"),
                                           agent::stringIn(user, @"primaryemail")]];
  [[state employeeContacts] addObject:address];
  return YES;
}

#pragma mark - NSTextViewDelegate

/// Escape acts as the Cancel button.
- (BOOL)textView:(NSTextView *)message doCommandBySelector:(SEL)command {
  return doCommandInMessage(message, command, ourMainWindow, @selector(performClose:));
}

@end
