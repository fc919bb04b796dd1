#pragma once

#import <Foundation/Foundation.h>

/// The selection of GWorkspace, the file manager of this platform, in its order: full paths without
/// a trailing slash. nil when it is not running, fails, or has not replied in time. Empty when
/// nothing is selected.
///
/// seconds: the time-out for the whole exchange; more than 0. Autoreleased; blocks the calling
/// thread.
NSArray *selectionOfFileManager(NSTimeInterval seconds);
