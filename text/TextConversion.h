#pragma once

#import <Foundation/Foundation.h>

/// How subjects and messages travel to the agent. Autoreleased results; any thread.

/// The first `units` UTF-16 units of the text, all of a shorter one. When the cut falls inside a
/// surrogate pair the whole pair is left out: half a character could not be escaped.
NSString *firstUnits(NSString *text, NSUInteger units);

/// The text as percent-escaped UTF-8: everything but ASCII letters, digits, "-", ".", "_" and "~"
/// is written as "%" and two upper-case hexadecimal digits a byte. nil gives nil. Text that UTF-8
/// cannot hold (lone surrogates) has them replaced by U+FFFD first, so that the rest is not lost.
NSString *percentEscaped(NSString *text);
