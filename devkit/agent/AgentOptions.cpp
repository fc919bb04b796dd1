#include "devkit/agent/AgentOptions.h"

#include <charconv>
#include <exception>
#include <filesystem>
#include <system_error>

#include "devkit/base/Paths.h"

namespace devkit {
namespace {

constexpr std::int64_t kMostContacts = 1'000'000;

std::optional<std::int64_t> contactCount(const std::string &text) {
  std::int64_t count = -1;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), count);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  if (count < 0 || count > kMostContacts) return std::nullopt;
  return count;
}

/// Absolute, because it is printed for users whose current folder may differ.
std::string absolute(const std::string &path) {
  std::error_code failure;
  const auto full = std::filesystem::absolute(path, failure);
  return failure ? path : full.string();
}

}  // namespace

AgentOptions parseAgentOptions(const std::vector<std::string> &arguments) {
  AgentOptions options = {.dataFolder = absolute(dataFolderPath()), .contacts = {}, .problem = {}};
  for (std::size_t index = 0; index < arguments.size(); ++index) {
    const auto &word = arguments[index];
    const bool hasValue = index + 1 < arguments.size() && !arguments[index + 1].empty();
    if (word == "--help") {
      options.help = true;
    } else if (word == "--data" && hasValue) {
      options.dataFolder = absolute(arguments[++index]);
    } else if (word == "--contacts" && hasValue) {
      options.contacts = contactCount(arguments[++index]);
      if (!options.contacts) {
        options.problem = "--contacts takes a number from 0 to " + std::to_string(kMostContacts);
        return options;
      }
    } else if (word == "--data" || word == "--contacts") {
      options.problem = word + " needs a value";
      return options;
    } else if (word.starts_with("-") && !word.starts_with("--")) {
      ++index;
    } else {
      options.problem = "unknown argument " + word;
      return options;
    }
  }
  return options;
}

std::unique_ptr<Operations> openOperations(const AgentOptions &options, std::string &problem) {
  try {
    auto operations = std::make_unique<Operations>(options.dataFolder, syncedFolderPath());
    if (options.contacts) operations->fillAddressBook(*options.contacts);
    return operations;
  } catch (const std::exception &failure) {
    problem = failure.what();
    return nullptr;
  }
}

}  // namespace devkit
