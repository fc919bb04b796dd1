#import <AppKit/AppKit.h>

/// The pasteboard's object interface of macOS 10.6, as far as strings go.
@interface NSPasteboard (Writing)

/// Empties the pasteboard and takes it over; returns the new change count.
- (NSInteger)clearContents;

/// Writes the objects after clearContents. Strings are supported, and one object at a time: with
/// several, the pasteboard here has room for the first only. NO when there is nothing to write,
/// when an object is no string, or when the pasteboard refuses.
- (BOOL)writeObjects:(NSArray *)objects;

@end
