#pragma once

#import <Foundation/Foundation.h>

namespace agent {

/// The parts of `text` between the occurrences of a separator of one UTF-16 unit, whatever follows
/// it (the platform's componentsSeparatedByString: does not find one that a combining accent
/// follows), and in a third of the platform's time: this runs over a whole address book. Half a
/// surrogate pair becomes U+FFFD. nil for nil text. Autoreleased; any thread.
NSArray *piecesOf(NSString *text, unichar separator);

}  // namespace agent
