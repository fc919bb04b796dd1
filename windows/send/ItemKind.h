#pragma once

#import <Foundation/Foundation.h>

/// Whether there is a folder at `path`; logs when there is. NO for a file, for nothing, and for
/// nil. Asks the disk. Any thread.
BOOL isFolderOnDisk(NSString *path);
