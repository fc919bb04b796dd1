#include "devkit/client/Usage.h"

#include <charconv>

namespace devkit {
namespace {

constexpr double kLongestSeconds = 24 * 60 * 60;

struct Command {
  const char *name;
  Verb verb;
  std::size_t paths;
  bool hasTabs;
};

constexpr Command kCommands[] = {{"copy-link", Verb::CopyLink, 1, false},
                                 {"send", Verb::Send, 1, true},
                                 {"share", Verb::Share, 1, true},
                                 {"status", Verb::Status, 0, false}};

const Command *commandNamed(const std::string &name) {
  for (const auto &command : kCommands)
    if (name == command.name) return &command;
  return nullptr;
}

std::optional<double> number(const std::string &text) {
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value;
}

std::optional<std::chrono::duration<double>> seconds(const std::string &text) {
  const auto value = number(text);
  if (!value || !(*value >= 0 && *value <= kLongestSeconds)) return std::nullopt;
  return std::chrono::duration<double>(*value);
}

Failure wrong(const std::string &reason) {
  return {Exit::WrongUsage, reason + " (contextmenu --help explains the use)"};
}

}  // namespace

std::variant<Request, Failure> parseRequest(const std::vector<std::string> &arguments) {
  Request request;
  std::vector<std::string> words;
  std::optional<std::string> tab;
  bool options = true;
  for (std::size_t index = 0; index < arguments.size(); ++index) {
    const auto &word = arguments[index];
    if (!options || !word.starts_with("--")) {
      words.push_back(word);
    } else if (word == "--") {
      options = false;
    } else if (word == "--help") {
      return Request{};
    } else if (word != "--tab" && word != "--wait" && word != "--timeout") {
      return wrong("unknown option " + word);
    } else if (index + 1 == arguments.size()) {
      return wrong(word + " needs a value");
    } else if (const auto &value = arguments[++index]; word == "--tab") {
      tab = value;
    } else if (const auto time = seconds(value); !time) {
      return wrong(word + " takes a number of seconds, not \"" + value + "\"");
    } else {
      (word == "--wait" ? request.wait : request.timeout) = *time;
    }
  }

  if (words.empty()) return wrong("no command given");
  const auto *command = commandNamed(words[0]);
  if (!command) return wrong("unknown command \"" + words[0] + "\"");
  if (words.size() != 1 + command->paths || words.back().empty())
    return wrong(words[0] + (command->paths == 0 ? " takes no path" : " takes exactly one path"));
  if (tab && !command->hasTabs) return wrong(words[0] + " has no tabs");
  if (tab && *tab != "0" && *tab != "1") return wrong("--tab takes 0 or 1, not \"" + *tab + "\"");
  request.verb = command->verb;
  if (command->paths > 0) request.path = words[1];
  request.tab = tab == "1" ? 1 : 0;
  return request;
}

}  // namespace devkit
