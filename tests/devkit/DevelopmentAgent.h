#pragma once

#import "agent/KRVProxy.h"
#include "tests/devkit/Kit.h"
#include "tests/support/ChildProcess.h"

/// The development agent as a process of its own, started and registered, and the real connection
/// to it.
class DevelopmentAgent {
 public:
  explicit DevelopmentAgent(const std::vector<std::string> &options = {});

  ChildProcess &process() { return process_; }
  /// The agent's root object.
  id<KRVProxy> proxy() const { return proxy_; }

 private:
  ChildProcess process_;
  id<KRVProxy> proxy_;
};

/// The command line of the agent.
std::vector<std::string> agentCommand(const std::vector<std::string> &options);
