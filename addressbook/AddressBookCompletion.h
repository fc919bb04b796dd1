#import <Foundation/Foundation.h>

@class IndexedBook;

/// Completes recipients from an address book, and keeps the index of the book that it was asked for
/// last. Main thread.
@interface AddressBookCompletion : NSObject {
 @private
  IndexedBook *index;
}

/// The completions of a substring in a book (see IndexedBook.h). Whatever happened to the book
/// since the last call is taken into account: another array, entries added or taken out. Only for a
/// book that is neither the last one nor that one with additions an index has to be made first.
/// Empty for a nil book.
- (NSArray *)completionsIn:(NSArray *)book forSubstring:(NSString *)substring;

/// Keeps the index of the book that will be asked for next, which a background thread has made;
/// nil: none. Takes the caller's reference over and hands out the one to the former index, so that
/// a background thread can release it.
- (IndexedBook *)exchangeIndex:(IndexedBook *)newIndex;

@end
