#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace devkit {

/// A dictionary of the reply, entry by entry.
using Record = std::vector<std::pair<std::string_view, std::variant<std::string, bool>>>;

/// Why an operation was refused. The numbers follow the status codes of HTTP; a caller only
/// distinguishes 0 from the rest.
enum class Refusal : int {
  BadArgument = 400,
  NotAllowed = 403,
  NotFound = 404,
  ServiceFailed = 500
};

/// The outcome of an operation before it becomes a dictionary on the wire.
struct Reply {
  int error = 0;
  std::string errorMessage;
  std::variant<std::monostate, std::string, Record, std::vector<Record>> value;
};

}  // namespace devkit
