#pragma once

#import <Foundation/Foundation.h>

@class IndexedBook;

/// Recipient completion for the address book in use. One index is kept, that of the book which was
/// asked for last or given with exchangeIndex. Main thread.

/// The completions of a substring in a book (see IndexedBook.h). Whatever happened to the book
/// since the last call is taken into account: another array, entries added or taken out. Only for a
/// book that is neither the last one nor that one with additions an index has to be made first.
/// Empty for a nil book.
NSArray *completionsIn(NSArray *book, NSString *substring);

/// Keeps the index of the book that will be asked for next, made where making it disturbs nobody;
/// nil: none. The caller's reference is taken over, and the one to the former index handed out: to
/// be released where that disturbs nobody.
IndexedBook *exchangeIndex(IndexedBook *index);
