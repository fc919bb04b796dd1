#import "send/LocalizedText.h"

NSString *localizedText(NSString *key) {
  if (key == nil) return @"";
  NSString *const text = [[NSBundle mainBundle] localizedStringForKey:key value:@"" table:nil];
  // Platforms differ in what an empty default means: some answer the key then.
  return [text isEqualToString:key] ? @"" : text;
}
