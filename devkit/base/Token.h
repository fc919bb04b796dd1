#pragma once

#include <string>

namespace devkit {

/// A text of 32 hexadecimal digits that cannot be guessed: server ids, the part of a link after the
/// host, names of mails.
std::string unguessableToken();

}  // namespace devkit
