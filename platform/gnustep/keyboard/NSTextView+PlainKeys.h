#pragma once

#import <AppKit/AppKit.h>

@interface NSTextView (PlainKeys)

/// Whether a key without Command is for this text although a button of its window answers to it:
/// Return, Enter and Escape in a text of several lines, where a line break is one, and the other is
/// for an input method first and for the text's delegate then. Field editors want none: there both
/// are also the window's. Main thread.
- (BOOL)wantsKeyEquivalent:(NSEvent *)event;

@end
