#import "windows/TabController.h"

#import "addressbook/AddressBookEntry.h"
#import "windows/Alerts.h"
#import "windows/ApplicationState.h"
#import "windows/Recipients.h"
#import "windows/ResultSheet.h"

@implementation TabController

- (void)showAlert:(NSAlert *)alert {
  showAsSheet(alert, [self ourMainWindow], self);
}

- (void)showSuccessModalWindow:(NSString *)key {
  showSuccess({[self modalWindow], [self modalWindowText], [self ourMainWindow]}, self, key);
}

- (void)killModalWindow:(NSTimer *)timer {
  endSuccess(timer);
}

- (void)closeWindow {
  // Closing ends the window's controller, which is the owner of this one.
  [[self retain] autorelease];
  [[self ourMainWindow] close];
}

- (void)disconnectFromWindow {
  [self setOurMainWindow:nil];
  [self setModalWindow:nil];
  [self setModalWindowText:nil];
}

@end

@implementation RecipientTabController

- (void)prepareRecipients:(NSTokenField *)recipients message:(NSTextView *)message {
  setTokenizingCharacters(recipients);
  [recipients setDelegate:self];
  [message setDelegate:self];
}

- (BOOL)validateEmail:(NSString *)address {
  return isValidAddress(address);
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
  return [applicationState() completionsForSubstring:substring] ?: [NSArray array];
}

- (id)tokenField:(NSTokenField *)field representedObjectForEditingString:(NSString *)editingString {
  (void)field;
  return addressOfEntry(editingString);
}

@end
