#pragma once

#import <AppKit/AppKit.h>

/// A tab view in its window's loop of the Tab key: the row of tabs comes in front of the first and
/// behind the last control of the tab that is shown. Main thread.
@interface NSTabView (KeyLoop)

/// To be called when the controls of the tab that is shown follow each other otherwise than before.
/// Does nothing for a tab without a first control.
- (void)linkKeyViews;

@end
