#import "text/LocalizedText.h"

#include <mutex>

namespace {

/// Tells once of each key without a text, so that a forgotten text is found and a list of thousands
/// of entries does not fill the log.
void reportMissing(NSString *key) {
  static std::mutex lock;
  static NSMutableSet *const reported = [[NSMutableSet alloc] init];
  {
    const std::lock_guard<std::mutex> guard(lock);
    if ([reported containsObject:key]) return;
    [reported addObject:key];
  }
  NSLog(@"No text for \"%@\"", key);
}

}  // namespace

NSString *localizedText(NSString *key) {
  if ([key length] == 0) return @"";
  NSString *const text = [[NSBundle mainBundle] localizedStringForKey:key value:@"" table:nil];
  // Platforms differ in what an empty default means: some answer the key then.
  if ([text length] > 0 && ![text isEqualToString:key]) return text;
  reportMissing(key);
  return @"";
}
