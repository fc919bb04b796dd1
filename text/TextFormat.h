#pragma once

#import <Foundation/Foundation.h>

/// The format step that texts of the string table pass through: "%%" becomes "%", and the first
/// "%@" (or "%1$@") becomes the argument. Nothing else in the text is a conversion, so a careless
/// translation shows its mistake instead of reading memory that is not there. argument: nil for
/// none. nil as text gives the empty string. Autoreleased; any thread.
NSString *formatted(NSString *text, NSString *argument = nil);
