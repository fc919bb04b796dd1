#pragma once

#import <Foundation/Foundation.h>

/// What becomes of texts on their way to a title, to the log or to the agent. Autoreleased results;
/// any thread.

/// A text from elsewhere in one line, as titles and log lines are: line breaks and other control
/// characters become spaces, and so do the characters that change the direction of what follows,
/// with which "gpj.exe" can be made to look like "exe.jpg". Joiners stay: emoji and several scripts
/// need them. nil for nil.
NSString *singleLine(NSString *text);

/// `name` as the title of a window: in one line, with U+FFFD for half a surrogate pair; a name
/// longer than a file system allows (255 characters) is cut between whole characters and ends with
/// an ellipsis. Blanks at its ends stay: they are part of the name. nil for nil and for a
/// name of blanks only, which nobody could see.
NSString *windowTitle(NSString *name);

/// The first `units` UTF-16 units of the text, all of a shorter one. When the cut falls inside a
/// surrogate pair the whole pair is left out: half a character could not be escaped.
NSString *firstUnits(NSString *text, NSUInteger units);

/// The text as percent-escaped UTF-8: everything but ASCII letters, digits, "-", ".", "_" and "~"
/// is written as "%" and two upper-case hexadecimal digits a byte. nil gives nil. Text that UTF-8
/// cannot hold (lone surrogates) has them replaced by U+FFFD first, so that the rest is not lost.
NSString *percentEscaped(NSString *text);
