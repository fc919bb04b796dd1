#pragma once

#import <Foundation/Foundation.h>

#include <ostream>
#include <string>

/// A Foundation object as tests compare and print it: nil is "(nil)", a string is itself, anything
/// else its description.
inline std::string text(id object) {
  if (object == nil) return "(nil)";
  const char *const characters = [[object description] UTF8String];
  return characters == nullptr ? "(no UTF-8)" : characters;
}

/// The text followed by half a surrogate pair, which only a mutable string can get.
inline NSString *withHalfPair(NSString *begin) {
  NSMutableString *const result = [NSMutableString stringWithFormat:@"%@\U0001F600", begin];
  [result deleteCharactersInRange:NSMakeRange([result length] - 1, 1)];
  return result;
}
