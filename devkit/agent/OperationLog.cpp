#include "devkit/agent/OperationLog.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <iterator>

#include "devkit/base/Text.h"

namespace devkit {
namespace {

/// Texts beyond this are cut, so that one hostile argument does not fill the disk. More than ten
/// times what the application ever sends.
constexpr std::size_t kLongestText = 64 * 1024;

std::string json(std::string_view text) {
  std::string result = "\"";
  for (const char character : validUtf8(text.substr(0, kLongestText))) {
    const auto value = static_cast<unsigned char>(character);
    if (character == '"' || character == '\\') {
      result += {'\\', character};
    } else if (value < ' ' || value == 0x7F) {
      char escape[8];
      std::snprintf(escape, sizeof escape, "\\u%04x", value);
      result += escape;
    } else {
      result += character;
    }
  }
  return result + '"';
}

std::string json(const Argument &argument) {
  if (const auto *text = std::get_if<std::string>(&argument)) return json(std::string_view(*text));
  if (const auto *flag = std::get_if<bool>(&argument)) return *flag ? "true" : "false";
  return "null";
}

std::string now() {
  const auto time = std::time(nullptr);
  std::tm parts = {};
  gmtime_r(&time, &parts);
  char text[32];
  return {text, std::strftime(text, std::size(text), "%Y-%m-%dT%H:%M:%SZ", &parts)};
}

}  // namespace

void OperationLog::add(std::string_view operation, const Arguments &arguments, const Reply &reply) {
  std::string line = "{\"time\": " + json(std::string_view(now())) +
                     ", \"operation\": " + json(operation) + ", \"arguments\": {";
  bool first = true;
  for (const auto &[name, value] : arguments) {
    if (!first) line += ", ";
    first = false;
    line += json(name) + ": " + json(value);
  }
  line += "}, \"error\": " + std::to_string(reply.error) +
          ", \"errorMessage\": " + json(std::string_view(reply.errorMessage));
  if (const auto *text = std::get_if<std::string>(&reply.value))
    line += ", \"value\": " + json(std::string_view(*text));
  line += "}\n";

  const int file = open(path_.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0600);
  const auto written = file < 0 ? -1 : write(file, line.data(), line.size());
  if (written != static_cast<ssize_t>(line.size()))
    std::fprintf(stderr, "%s: %s\n", path_.c_str(), std::strerror(errno));
  if (file >= 0) close(file);
}

}  // namespace devkit
