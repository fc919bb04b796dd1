#pragma once

#import <Foundation/Foundation.h>

/// `name` as the title of a window: in one line (see SingleLine.h), with U+FFFD for half a
/// surrogate pair, and a name longer than a file system allows (255 characters) is cut, with an
/// ellipsis, between whole characters. nil for nil and for a name of which nothing is left.
/// Autoreleased; any thread.
NSString *windowTitle(NSString *name);
