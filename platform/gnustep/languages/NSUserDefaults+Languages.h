#pragma once

#import <Foundation/Foundation.h>

/// Finds the texts of an application whose localisation folders are named as on the Mac.
///
/// The platform has names of its own for languages and maps them to folders as far as its tables
/// go, which is not to "pt-BR"; it takes the language of LANG only where a locale of that name is
/// installed; and it finds nothing for a "de-DE" in the user's settings.
@interface NSUserDefaults (Languages)

/// Puts the user's languages, named as the localisations of the main bundle, in front of those by
/// which localisations are looked up (NSLanguages). The user's own setting of NSLanguages, on the
/// command line or stored, comes before the environment (LANGUAGE, LC_ALL, LC_MESSAGES, LANG). How
/// texts are compared and dates and numbers written stays as it is.
///
/// To be called before the first text is looked up, because a bundle caches its tables. Later calls
/// have no effect. Main thread.
+ (void)adoptLanguagesOfUser;

@end
