#pragma once

#include <string>
#include <vector>

namespace devkit {

/// The arguments of main without the program's name, byte for byte as the caller gave them.
///
/// Foundation makes strings of the arguments before main begins, and ends the program when one of
/// them is no UTF-8, which a path may well be. In a program that uses this function Foundation gets
/// question marks in place of such bytes.
std::vector<std::string> originalArguments(int argc, char *argv[]);

}  // namespace devkit
