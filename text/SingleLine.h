#pragma once

#import <Foundation/Foundation.h>

/// A text from elsewhere in one line, as titles and log lines are: line breaks and other control
/// characters become spaces, and so do the characters that change the direction of what follows,
/// with which "gpj.exe" can be made to look like "exe.jpg". Joiners stay: emoji and several scripts
/// need them. nil for nil. Autoreleased; any thread.
NSString *singleLine(NSString *text);
