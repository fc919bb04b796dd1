#pragma once

#import <AppKit/AppKit.h>

@interface NSTextView (PlainKeys)

/// Whether this text handles a key without Command that is also the key equivalent of a button in
/// its window: Return, Enter and Escape in a text of several lines, where the former insert a line
/// break and the latter is for the input method and the delegate. NO for field editors. Main
/// thread.
- (BOOL)wantsKeyEquivalent:(NSEvent *)event;

@end
