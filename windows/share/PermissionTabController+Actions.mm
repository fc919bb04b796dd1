#import "windows/share/PermissionTabController.h"

#include <algorithm>

#import "agent/AgentRequest.h"
#import "agent/BVDataModelController.h"
#import "text/LocalizedText.h"
#import "windows/Alerts.h"
#import "windows/RequestSuspension.h"
#import "windows/share/AccessLevel.h"
#import "windows/share/PermissionTabController+Showing.h"
#import "windows/share/PersonItem.h"
#import "windows/share/SharedWith.h"

namespace {

/// The key equivalent of Escape, for the button that changes nothing.
NSString *const kEscape = @"\033";

enum class Answer { Yes, No, Other, None };

Answer answerOf(NSInteger returnCode) {
  switch (returnCode) {
    case NSAlertFirstButtonReturn:
      return Answer::Yes;
    case NSAlertSecondButtonReturn:
      return Answer::No;
    case -1:
      return Answer::Other;
    default:
      return Answer::None;
  }
}

NSAlert *question() {
  NSAlert *const alert = alertWithTexts(formatted(localizedText(@"unshareMessageTextKey")), nil);
  [alert addButtonWithTitle:localizedText(@"yesButtonTitleKey")];
  NSButton *const no = [alert addButtonWithTitle:localizedText(@"noButtonTitleKey")];
  [no setKeyEquivalent:kEscape];
  [alert setAlertStyle:NSWarningAlertStyle];
  return alert;
}

/// The index of the person with this address; NSNotFound when there is none, and for nil.
NSUInteger rowOf(NSString *address, NSArray *people) {
  for (NSUInteger row = 0; row < [people count]; ++row) {
    if ([[[people objectAtIndex:row] useremail] isEqual:address]) return row;
  }
  return NSNotFound;
}

/// Whether the view or one in it has the keyboard.
bool hasKeyboard(NSView *view) {
  id const responder = [[view window] firstResponder];
  return [responder isKindOfClass:[NSView class]] && [responder isDescendantOf:view];
}

/// The button that removes a person; nil where the person's row has no view.
NSButton *removeButtonOf(SharedWith *person, NSView *rows) {
  for (NSView *row in [rows subviews]) {
    if (![row isKindOfClass:[PersonRowView class]]) continue;
    if ([static_cast<PersonRowView *>(row) person] != person) continue;
    for (NSView *view in [row subviews]) {
      const BOOL isPopUp = [view isKindOfClass:[NSPopUpButton class]];
      if ([view isKindOfClass:[NSButton class]] && !isPopUp) return static_cast<NSButton *>(view);
    }
  }
  return nil;
}

}  // namespace

@implementation PermissionTabController (Actions)

#pragma mark - Rows

/// The index of a control's row among all rows, NSNotFound when the row is no longer in the list.
- (NSUInteger)rowOfControl:(NSView *)control {
  NSView *const itemView = [control superview];
  if (![itemView isKindOfClass:[PersonRowView class]]) {
    return [[collectionViewForAllEntries subviews] indexOfObjectIdenticalTo:itemView];
  }
  // By the person and not by the view's index: a long list has views only for its visible rows.
  SharedWith *const person = [static_cast<PersonRowView *>(itemView) person];
  return [[arrayController arrangedObjects] indexOfObjectIdenticalTo:person];
}

/// The person in a row; nil when there is no such row.
- (SharedWith *)personInRow:(NSUInteger)row {
  NSArray *const rows = [arrayController arrangedObjects];
  return row < [rows count] ? [[[rows objectAtIndex:row] retain] autorelease] : nil;
}

#pragma mark - Changing

- (IBAction)popUpButtonSelectionDidChange:(NSPopUpButton *)popUp {
  withRequestsSuspended([&] { [self changeAccessTo:popUp]; });
}

- (void)changeAccessTo:(NSPopUpButton *)popUp {
  const NSUInteger row = [self rowOfControl:popUp];
  SharedWith *const person = [self personInRow:row];
  if (person == nil) return;
  [arrayController setSelectionIndex:row];
  NSString *const chosen = [popUp titleOfSelectedItem];
  SharedWith *const selected = [[arrayController selectedObjects] objectAtIndex:0];
  if ([chosen isEqualToString:[selected permission]]) return;
  const AccessLevel level = levelWithTitle(chosen);
  // Deliberately before the agent is asked, and not undone when the agent refuses: the alert says
  // so.
  setLevel(person, level);
  [self showAtWork];
  if ([self didSucceed:[self grant:level to:person]]) {
    [self showSuccessModalWindow:@"permissionsUpdatedSuccessTextKey"];
  }
  [self showIdle];
}

- (NSDictionary *)grant:(AccessLevel)level to:(SharedWith *)person {
  BVDataModelController *const agent = [[[BVDataModelController alloc] init] autorelease];
  const BOOL mayWrite = level == AccessLevel::ReadWrite;
  NSString *const message = localizedText(@"permissionNotifyMessageKey");
  NSString *const path = [self filePath];
  const BOOL isId = [self isFileId];
  // clang-format off
  return [agent grantAccess:[person useremail]:path:YES:mayWrite:mayWrite:YES:isId:NO:message];
  // clang-format on
}

/// Whether a change or a removal succeeded. If not, shows the alert.
- (BOOL)didSucceed:(NSDictionary *)reply {
  switch (agent::kindOfActionReply(reply)) {
    case agent::ReplyKind::Succeeded:
      return YES;
    case agent::ReplyKind::Refused: {
      NSString *const format = localizedText(@"cannotRevokePermissionTextFormatKey");
      NSString *const reason = agent::errorMessage(reply) ?: @"";
      [self showAlert:alertWithTexts(formatted(format, reason), nil)];
      return NO;
    }
    case agent::ReplyKind::Unreachable:
      NSLog(@"Getting null data from rest API(machine offline or server down)");
      [self showAlert:cannotConnectAlert()];
      return NO;
  }
}

#pragma mark - Removing

- (IBAction)removeEntryClicked:(NSButton *)button {
  const NSUInteger row = [self rowOfControl:button];
  SharedWith *const person = [self personInRow:row];
  if (person == nil || ourMainWindow == nil) return;
  [personInQuestion autorelease];
  personInQuestion = [person retain];
  askAsSheet(question(), ourMainWindow, self, @selector(handleResult:withResult:withSender:),
             reinterpret_cast<void *>(row));
}

/// To the button that removes the person in a row, or in the last one where there are fewer; behind
/// the list where there is none.
- (void)moveKeyboardToRow:(NSUInteger)row {
  NSArray *const people = [arrayController arrangedObjects];
  NSButton *button = nil;
  if ([people count] > 0) {
    // The views of rows are made when they are drawn.
    [collectionViewForAllEntries display];
    SharedWith *const person = [people objectAtIndex:std::min(row, [people count] - 1)];
    button = removeButtonOf(person, collectionViewForAllEntries);
  }
  if (button != nil) {
    [ourMainWindow makeFirstResponder:button];
  } else {
    [ourMainWindow selectKeyViewFollowingView:collectionViewForAllEntries];
  }
}

- (void)handleResult:(NSAlert *)alert withResult:(NSInteger)returnCode withSender:(void *)context {
  const auto row = reinterpret_cast<NSUInteger>(context);
  withRequestsSuspended([&] { [self handleAnswer:answerOf(returnCode) to:alert aboutRow:row]; });
}

- (void)handleAnswer:(Answer)answer to:(NSAlert *)alert aboutRow:(NSUInteger)row {
  SharedWith *const asked = [personInQuestion autorelease];
  personInQuestion = nil;
  switch (answer) {
    case Answer::Yes:
      [[alert window] close];
      [self revokeAccessTo:asked inRow:row];
      if ([personList count] == 0) {
        [self showInsteadOfList:localizedText(@"notSharingTextMessageKey")];
      }
      return;
    case Answer::No:
      NSLog(@"result: Cancel");
      return;
    case Answer::Other:
      NSLog(@"result: Default Case");
      return;
    case Answer::None:
      return;
  }
}

/// asked: the person that the question was about, nil for the person in the row. The list may have
/// been loaded again while the question was shown, and the person may be in another row now.
- (void)revokeAccessTo:(SharedWith *)asked inRow:(NSUInteger)row {
  NSUInteger current = row;
  if (asked != nil && [self personInRow:current] != asked) {
    current = rowOf([asked useremail], [arrayController arrangedObjects]);
    if (current == NSNotFound) return;
  }
  [self revokeAccessToUser:[NSNumber numberWithInt:static_cast<int>(current)]];
}

- (void)revokeAccessToUser:(NSNumber *)row {
  withRequestsSuspended(
      [&] { [self revokeAccessInRow:static_cast<NSUInteger>([row integerValue])]; });
}

- (void)revokeAccessInRow:(NSUInteger)index {
  SharedWith *const person = [self personInRow:index];
  if (person == nil) return;
  [self showAtWork];
  BVDataModelController *const agent = [[[BVDataModelController alloc] init] autorelease];
  NSString *const path = [self filePath];
  // clang-format off
  NSDictionary *const reply = [agent revokeAccess:[person useremail]:path:[self isFileId]];
  // clang-format on
  if ([self didSucceed:reply]) {
    const bool rowsHaveKeyboard = hasKeyboard(collectionViewForAllEntries);
    [arrayController removeObjectAtArrangedObjectIndex:index];
    if (rowsHaveKeyboard) [self moveKeyboardToRow:index];
    [self showSuccessModalWindow:@"permissionRevokedSuccessMessageTextFormatKey"];
  }
  [self showIdle];
  // Deliberately not localized: after a question the localized text replaces it at once.
  if ([personList count] == 0) {
    [self showInsteadOfList:@"You are not currently sharing this folder with anyone."];
  }
}

@end
