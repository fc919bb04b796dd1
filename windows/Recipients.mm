#import "windows/Recipients.h"

#import "text/LocalizedText.h"
#import "windows/Alerts.h"

namespace {

NSString *const kSeparator = @",";
NSString *const kTokenizing = @",;";

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
      alertWithTexts(formatted(localizedText(@"invalidEmailErrorMessageTextKey")), informative);
  [alert addButtonWithTitle:localizedText(@"alertOkButtonTitleKey")];
  return alert;
}
