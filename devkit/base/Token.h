#pragma once

#include <string>

namespace devkit {

/// A text of 32 hexadecimal digits that nobody can guess: server ids, the part of a link after the
/// host, names of mails.
std::string unguessableToken();

}  // namespace devkit
