#import <AppKit/AppKit.h>

#include <cstdio>
#include <string_view>

#import "platform/gnustep/languages/NSUserDefaults+Languages.h"
#include "tests/support/ProgramEnd.h"

// A localised program that tests start with an environment and settings of their choice.
//
//   localized_text KEY                 prints the text of a key in the user's language
//   localized_text --application KEY   the same, as an application with a screen
//   localized_text --formats           prints how it writes and orders, before and after it has
//                                      adopted the user's language

namespace {

void print(NSString *line) {
  std::printf("%s\n", [line UTF8String]);
}

/// The locale, a date, the days of the week, a number, and whether Öl comes after zo (as it does in
/// Swedish).
void printFormats() {
  NSDateFormatter *const formatter = [[[NSDateFormatter alloc] init] autorelease];
  [formatter setDateStyle:NSDateFormatterFullStyle];
  print([[NSLocale currentLocale] localeIdentifier]);
  print([formatter stringFromDate:[NSDate dateWithTimeIntervalSince1970:0]]);
  NSUserDefaults *const defaults = [NSUserDefaults standardUserDefaults];
  print([[defaults stringArrayForKey:NSWeekDayNameArray] componentsJoinedByString:@" "]);
  print([NSString localizedStringWithFormat:@"%.2f", 1234.5]);
  print([@"Öl" localizedCompare:@"zo"] == NSOrderedDescending ? @"after" : @"before");
}

NSString *textFor(NSString *key) {
  return [[NSBundle mainBundle] localizedStringForKey:key value:@"" table:nil];
}

}  // namespace

int main(int argc, char *argv[]) {
  @autoreleasepool {
    const std::string_view asked = argc > 1 ? argv[1] : "";
    if (asked == "--formats") printFormats();
    if (asked == "--application") {
      NSString *const principal =
          [[[NSBundle mainBundle] infoDictionary] objectForKey:@"NSPrincipalClass"];
      [NSClassFromString(principal) sharedApplication];
    } else if ([NSUserDefaults respondsToSelector:@selector(adoptLanguagesOfUser)]) {
      [NSUserDefaults adoptLanguagesOfUser];
    }
    if (asked == "--formats") {
      printFormats();
    } else {
      print(textFor(@(argv[asked == "--application" ? 2 : 1])));
    }
  }
  endProgram(0);
}
