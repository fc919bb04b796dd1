#pragma once

#import <Foundation/Foundation.h>

#include <random>

/// The expected completions: the address book filtered with the two predicates.
NSArray *filteredByPredicates(NSArray *book, NSString *substring);

/// Address books and typed texts with every kind of content that strings can have: letters of one
/// case, of two and of three, with accents composed and decomposed, of full width, from right to
/// left, of two units; quotes, wildcards, backslashes, controls; any length. The same for the same
/// seed.
class RandomBooks {
 public:
  explicit RandomBooks(unsigned seed) : random_(seed) {}

  /// Entries of most shapes, in no order; some are there twice, some are short or empty.
  NSArray *book(unsigned entries);

  /// Something typed: a part of an entry, which may begin or end within a surrogate pair; a part in
  /// another case, with a unit exchanged or with something added; or something not from the book.
  NSString *typedFor(NSArray *book);

 private:
  NSString *text(unsigned maximumPieces);
  NSString *entry();
  NSString *changed(NSString *part);
  unsigned below(unsigned limit) { return static_cast<unsigned>(random_() % limit); }

  std::mt19937 random_;
};
