#import "windows/share/AccessLevel.h"

#import "text/LocalizedText.h"

NSString *titleOf(AccessLevel level) {
  return level == AccessLevel::ReadWrite ? localizedText(@"accessPermissionReadWriteKey")
                                         : localizedText(@"accessPermissionReadOnlyKey");
}

AccessLevel levelWithTitle(NSString *title) {
  return [title isEqualToString:titleOf(AccessLevel::ReadWrite)] ? AccessLevel::ReadWrite
                                                                 : AccessLevel::ReadOnly;
}

NSString *displayName(NSString *firstName, NSString *lastName, NSString *address) {
  NSString *const first = [firstName capitalizedString];
  if ([first length] == 0) return address;
  return [NSString stringWithFormat:@"%@ %@", first, [lastName capitalizedString] ?: @""];
}
