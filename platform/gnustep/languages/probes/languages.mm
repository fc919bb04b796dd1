#import <Foundation/Foundation.h>

#include <cstdlib>

int main() {
  // A language that is hardly anybody's own setting, as the Mac's folder for it is named.
  for (const char *name : {"LANGUAGE", "LC_ALL", "LC_MESSAGES"}) unsetenv(name);
  setenv("LANG", "mi_NZ.UTF-8", 1);
  @autoreleasepool {
    NSArray *const found = [NSBundle preferredLocalizationsFromArray:@[ @"en", @"mi" ]];
    return [[found objectAtIndex:0] isEqualToString:@"mi"] ? 0 : 1;
  }
}
