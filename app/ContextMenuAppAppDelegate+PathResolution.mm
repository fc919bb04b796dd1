#include <string>

#import "agent/RestoringAfterwards.h"
#import "agent/ResultDictionary.h"
#include "app/BVSyncEngine.h"
#import "app/ContextMenuAppAppDelegate.h"
#import "text/UTF16.h"

namespace {

/// Runs a query of the sync engine between BvInitialize and BvUninitialize: only when the library
/// could be initialised, but uninitialises it in every case. (Intended, as is that the probe in
/// main uninitialises it only after a success.)
template <class Query>
int queryEngine(Query query) {
  return agent::restoringAfterwards(
      [&] {
        const int code = BvInitialize();
        return code == 0 ? query() : code;
      },
      BvUninitialize);
}

/// Replaces half a surrogate pair: a platform that left it out would make another item's path.
std::string utf8(NSString *path) {
  NSString *const wellFormed = utf16::stringOf(utf16::wellFormed(utf16::unitsOf(path)));
  NSData *const data = [wellFormed dataUsingEncoding:NSUTF8StringEncoding];
  return std::string(static_cast<const char *>([data bytes]), [data length]);
}

/// Stores an id that the library returned, as a copy, because the characters belong to the library.
/// Stores nothing when the id is missing or not UTF-8: callers treat an empty id as a failed
/// look-up.
void storeId(const char *characters, NSString **outId) {
  if (characters == nullptr || outId == nullptr) return;
  NSData *const data = [NSData dataWithBytes:characters
                                      length:std::char_traits<char>::length(characters)];
  NSString *const string = [[[NSString alloc] initWithData:data
                                                  encoding:NSUTF8StringEncoding] autorelease];
  if (string != nil) *outId = string;
}

using IdQuery = int (*)(const char *path, char **id);

int lookUpId(IdQuery query, NSString *path, char *idBuffer, NSString **outId) {
  char *characters = idBuffer;
  const int code = query(utf8(path).c_str(), &characters);
  if (code == 0) storeId(characters, outId);
  return code;
}

}  // namespace

@implementation ContextMenuAppAppDelegate (PathResolution)

// clang-format off

- (int)GetFileState:(NSString *)path:(int)state {
  return queryEngine([&] {
    int localState = state;
    return BvGetFileSyncState(utf8(path).c_str(), &localState);
  });
}

- (int)GetFileIdByPath:(NSString *)path:(char *)idBuffer:(NSString **)outId {
  return queryEngine([&] { return lookUpId(BvGetFileIdByName, path, idBuffer, outId); });
}

- (int)GetFolderIdByPath:(NSString *)path:(char *)idBuffer:(NSString **)outId {
  return queryEngine([&] {
    NSString *const home = [NSString stringWithFormat:@"%@/MyDocs", [self syncedFilePath]];
    if ([path isEqualToString:home]) {
      if (outId != nullptr)
        *outId = agent::stringOrNil([[self homeFolderInfo] objectForKey:@"homefolder"]);
      return 0;
    }
    return lookUpId(BvGetFolderIdByName, path, idBuffer, outId);
  });
}

- (BOOL)containsString:(NSString *)string:(NSString *)substring {
  // A message to nil would return location 0, which would count as found; for the empty string
  // platforms differ.
  if (string == nil || [substring length] == 0) return NO;
  const NSRange found = [string rangeOfString:substring options:NSCaseInsensitiveSearch];
  return found.location != NSNotFound;
}

// clang-format on

@end
