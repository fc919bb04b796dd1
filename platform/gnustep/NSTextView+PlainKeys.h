#pragma once

#import <AppKit/AppKit.h>

@interface NSTextView (PlainKeys)

/// Whether a key without Command is for this text although a button of its window answers to it:
/// Return and Enter in a text of several lines. Field editors want none: Return in a field is also
/// the window's. Main thread.
- (BOOL)wantsKeyEquivalent:(NSEvent *)event;

@end
