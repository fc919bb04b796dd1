#pragma once

#import <AppKit/AppKit.h>

/// A tab view in the key view loop of its window: the row of tabs comes before the first and after
/// the last control of the selected tab. Main thread.
@interface NSTabView (KeyLoop)

/// To be called when the order of the controls in the selected tab has changed. No effect for a tab
/// without an initial first responder.
- (void)linkKeyViews;

@end
