#import "tests/devkit/DevelopmentAgent.h"

#include <stdexcept>

#import "agent/AgentIdentity.h"

DevelopmentAgent::DevelopmentAgent(const std::vector<std::string> &options)
    : process_(agentCommand(options)) {
  if (!process_.waitForOutput("registered as"))
    throw std::runtime_error("the agent did not start: " + process_.output());
  proxy_ = static_cast<id<KRVProxy>>(
      [NSConnection rootProxyForConnectionWithRegisteredName:agent::kConnectionName host:nil]);
}

std::vector<std::string> agentCommand(const std::vector<std::string> &options) {
  std::vector<std::string> command = {DEVELOPMENT_AGENT};
  command.insert(command.end(), options.begin(), options.end());
  return command;
}
