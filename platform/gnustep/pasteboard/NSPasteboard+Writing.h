#import <AppKit/AppKit.h>

/// What the platform's pasteboard lacks of macOS 10.6, for strings only.
@interface NSPasteboard (Writing)

/// Empties the pasteboard and becomes its owner; returns the new change count.
- (NSInteger)clearContents;

/// Writes the objects after clearContents. Strings are supported, and one object at a time: of
/// several only the first is written, because the pasteboard here holds one item. NO when there is
/// nothing to write, when an object is no string, or when the pasteboard refuses.
- (BOOL)writeObjects:(NSArray *)objects;

@end
