#import "windows/Recipients.h"

#import "addressbook/AddressBookCompletion.h"
#import "app/ContextMenuAppAppDelegate.h"
#import "text/LocalizedText.h"
#import "windows/Alerts.h"

namespace {

NSString *const kSeparator = @",";
NSString *const kTokenizing = @",;";
NSString *const kBrackets = @"<>";

NSPredicate *addressPattern() {
  static NSPredicate *const pattern = [[NSPredicate
      predicateWithFormat:@"SELF MATCHES %@", @"[A-Z0-9a-z._%+-]+@[A-Za-z0-9.-]+\\.[A-Za-z]{2,4}"]
      retain];
  return pattern;
}

}  // namespace

void setTokenizingCharacters(NSTokenField *field) {
  [field setTokenizingCharacterSet:[NSCharacterSet characterSetWithCharactersInString:kTokenizing]];
}

NSArray *completions(NSString *substring) {
  ContextMenuAppAppDelegate *const delegate =
      static_cast<ContextMenuAppAppDelegate *>([NSApp delegate]);
  return completionsIn([delegate addressBookForShare], substring);
}

NSString *addressOfEntry(NSString *editingString) {
  NSCharacterSet *const brackets = [NSCharacterSet characterSetWithCharactersInString:kBrackets];
  NSArray *const pieces = [editingString componentsSeparatedByCharactersInSet:brackets];
  return [pieces count] < 2 ? nil : [pieces objectAtIndex:1];
}

BOOL isValidAddress(NSString *address) {
  return address != nil && [addressPattern() evaluateWithObject:address];
}

NSArray *recipientsIn(NSString *entered) {
  // Not by the string: the platform does not find a comma that a combining accent follows.
  return [entered ?: @""
      componentsSeparatedByCharactersInSet:[NSCharacterSet
                                               characterSetWithCharactersInString:kSeparator]];
}

NSString *firstInvalidRecipient(NSString *entered) {
  for (NSString *recipient in recipientsIn(entered)) {
    if (!isValidAddress(recipient)) return recipient;
  }
  return nil;
}

NSAlert *invalidRecipientAlert(NSString *recipient) {
  NSString *const informative =
      [recipient length] == 0
          ? localizedText(@"invalidEmailErrorInformativeTextBlankKey")
          : formatted(localizedText(@"invalidEmailErrorInformativeTextFormatKey"), recipient);
  NSAlert *const alert =
      alertWithTexts(localizedText(@"invalidEmailErrorMessageTextKey"), informative);
  [alert addButtonWithTitle:localizedText(@"alertOkButtonTitleKey")];
  return alert;
}
