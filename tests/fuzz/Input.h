#pragma once

#import <Foundation/Foundation.h>

#include <string>
#include <string_view>
#include <vector>

/// The arguments of a fuzzed function, made of arbitrary bytes. Every sequence of bytes is an
/// input, and plain text stands for itself, so that a corpus can be read and written by hand.
namespace fuzz {

/// The bytes as UTF-8. A byte that is in no well-formed sequence becomes half a surrogate pair:
/// text that UTF-8 cannot hold is an input, too.
std::u16string unitsFrom(std::string_view bytes);

/// The same units as a string. Autoreleased, never nil.
NSString *stringFrom(std::string_view bytes);

/// With U+FFFD in place of halves of surrogate pairs, as strings arrive over a connection.
/// Autoreleased, never nil.
NSString *wellFormedStringFrom(std::string_view bytes);

/// The bytes between line feeds; at least one line.
std::vector<std::string_view> linesOf(std::string_view bytes);

/// The first `count` lines, of which the last reaches to the end of the bytes. Missing ones are
/// empty.
std::vector<std::string_view> fieldsOf(std::string_view bytes, std::size_t count);

/// An object as it may come from another process, written as
///
///     'text'   #12.5;   + and - (booleans)   ! (null)   $data$   @ (a date)
///     { key value ... }   [ element ... ]
///
/// where "*" behind an element of the outermost array adds nine more like it. Anything else is
/// skipped, and what is not closed ends with the input. nil when there is no object. Autoreleased.
id objectFrom(std::string_view bytes);

}  // namespace fuzz
