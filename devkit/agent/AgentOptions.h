#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "devkit/agent/Operations.h"

namespace devkit {

/// What the command line asks of the agent.
struct AgentOptions {
  std::string dataFolder;
  std::optional<std::int64_t> contacts;
  bool help = false;
  /// Why the command line is invalid; empty when it is valid.
  std::string problem;
};

/// An argument with a single dash and the one after it set a user default ("-NSLanguages fr") and
/// are left to the platform.
AgentOptions parseAgentOptions(const std::vector<std::string> &arguments);

inline constexpr const char *kAgentUsage =
    "Usage: VeldaneKRVAgent [--data FOLDER] [--contacts N]\n"
    "Stands in for the agent of the service: answers on \"KRVSyncAgent\" until it is ended.\n"
    "  --data FOLDER   where the store, the outbox and the log of operations lie\n"
    "  --contacts N    replace the address book by N generated contacts\n"
    "  --help          this text\n";

/// Opens the store that the options name; null when that fails, with the reason in `problem`. Here
/// because C++ exceptions cannot be caught in an Objective-C++ file.
std::unique_ptr<Operations> openOperations(const AgentOptions &options, std::string &problem);

}  // namespace devkit
