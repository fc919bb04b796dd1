#pragma once

#import <Foundation/Foundation.h>

/// The text for `key` in the user's language, from the application's string table. A key without a
/// text gives the empty string, never the key itself: users cannot read keys; the first time the
/// key goes to the log. nil gives the empty string. Autoreleased; any thread.
NSString *localizedText(NSString *key);
