#import "windows/share/AccessLevel.h"

#import "text/LocalizedText.h"
#import "windows/share/SharedWith.h"

namespace {

/// The type of the entries that are people.
NSString *const kPersonType = @"user";

}  // namespace

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

std::optional<AccessLevel> listedLevel(const agent::AccessEntry &entry) {
  if (![entry.type isEqualToString:kPersonType]) return std::nullopt;
  // Deliberately not listed, whatever else is allowed: without downloading there is no access.
  if (!entry.canDownload || entry.isOwner) return std::nullopt;
  return entry.canUpload && entry.canDelete ? AccessLevel::ReadWrite : AccessLevel::ReadOnly;
}

SharedWith *rowFor(const agent::AccessEntry &entry) {
  const std::optional<AccessLevel> level = listedLevel(entry);
  if (!level) return nil;
  SharedWith *const row = [[[SharedWith alloc] init] autorelease];
  [row setPersonName:displayName(entry.firstName, entry.lastName, entry.address)];
  [row setUseremail:entry.address];
  [row setIsNotOwner:YES];
  setLevel(row, *level);
  return row;
}

void setLevel(SharedWith *row, AccessLevel level) {
  [row setPermission:titleOf(level)];
  [row setAccessPermission:level == AccessLevel::ReadWrite ? 1 : 0];
}
