#pragma once

#import <Foundation/Foundation.h>

/// What is selected in GWorkspace, the file manager of this platform, in its order: full paths
/// without a trailing slash, as it has them. nil when it is not running, refuses, breaks off, or
/// has not answered when the time is over. Empty when nothing is selected.
///
/// seconds: for the whole exchange; more than 0. Autoreleased; blocks the calling thread.
NSArray *selectionOfFileManager(NSTimeInterval seconds);
