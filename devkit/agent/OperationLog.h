#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "devkit/agent/Reply.h"

namespace devkit {

/// An argument as it arrived: nothing (nil, or of a class that the operation does not take), a text
/// or a flag.
using Argument = std::variant<std::monostate, std::string, bool>;
using Arguments = std::vector<std::pair<std::string_view, Argument>>;

/// The file in which every operation leaves one line of JSON:
/// {"time": "...", "operation": "...", "arguments": {...}, "error": 0, "errorMessage": "...",
/// "value": "..."}, the last one only where the reply's value is a text, that is, a link.
class OperationLog {
 public:
  explicit OperationLog(std::string path) : path_(std::move(path)) {}

  /// Adds a line in one write, so that lines of several writers do not mix. A log that cannot be
  /// written must not stop the operation; the failure is only printed to standard error.
  void add(std::string_view operation, const Arguments &arguments, const Reply &reply);

 private:
  std::string path_;
};

}  // namespace devkit
