#pragma once

#import <AppKit/AppKit.h>

@interface NSTextView (MarkedText)

/// Removes the marked text, as an input method does before it inserts the final one. Nobody is
/// told: it was not part of the text yet.
- (void)removeMarkedText;

@end
