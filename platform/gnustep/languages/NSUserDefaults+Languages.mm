#import "platform/gnustep/languages/NSUserDefaults+Languages.h"

#include "platform/gnustep/languages/LanguageChoice.h"

namespace {

NSString *const kLanguages = @"NSLanguages";

LanguageNames namesIn(NSArray *strings) {
  LanguageNames names;
  for (NSString *string in strings) names.emplace_back([string UTF8String]);
  return names;
}

NSArray *arrayOf(const LanguageNames &names) {
  NSMutableArray *const strings = [NSMutableArray arrayWithCapacity:names.size()];
  for (const std::string &name : names) [strings addObject:@(name.c_str())];
  return strings;
}

/// What the user has set, or the administrator for all users. Not the value that the defaults
/// answer, because the platform overrides it by a list of its own, in a domain of its own.
NSArray *languagesSetIn(NSUserDefaults *defaults) {
  NSArray *const domains = @[
    NSArgumentDomain, [[NSProcessInfo processInfo] processName], NSGlobalDomain, GSConfigDomain
  ];
  for (NSString *domain in domains) {
    NSDictionary *const settings =
        [defaults volatileDomainForName:domain] ?: [defaults persistentDomainForName:domain];
    id languages = [settings objectForKey:kLanguages];
    if ([languages isKindOfClass:[NSArray class]] && [languages count] > 0) return languages;
  }
  return nil;
}

/// Settings may hold the platform's own names, like "German".
NSArray *canonical(NSArray *languages) {
  NSMutableArray *const names = [NSMutableArray array];
  for (id language in languages) {
    if (![language isKindOfClass:[NSString class]]) continue;
    [names addObject:[NSLocale canonicalLanguageIdentifierFromString:language]];
  }
  return names;
}

}  // namespace

@implementation NSUserDefaults (Languages)

+ (void)adoptLanguagesOfUser {
  static bool adopted = false;
  if (adopted) return;
  adopted = true;
  NSUserDefaults *const defaults = [self standardUserDefaults];
  NSArray *const set = languagesSetIn(defaults);
  const LanguageNames wanted = set != nil ? namesIn(canonical(set)) : languagesOfEnvironment();
  const LanguageNames available = namesIn([[NSBundle mainBundle] localizations]);
  NSMutableArray *const languages =
      [NSMutableArray arrayWithArray:arrayOf(lookupOrder(wanted, available))];
  for (NSString *language in [defaults stringArrayForKey:kLanguages]) {
    if (![languages containsObject:language]) [languages addObject:language];
  }
  // Formats come from domains that were chosen when the defaults were created, and do not change.
  [self setUserLanguages:languages];
}

@end
