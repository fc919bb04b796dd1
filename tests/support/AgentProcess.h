#pragma once

#import <Foundation/Foundation.h>

#include <memory>
#include <string>

#include "tests/support/ChildProcess.h"

/// The scripted agent as a separate process with a real connection. Running it makes the agent one
/// of the running applications. The destructor ends it.
class AgentProcess {
 public:
  struct Options {
    /// The bundle identifier of the application that it runs as; "-" for none.
    std::string identifier = KRV_AGENT_BUNDLE_IDENTIFIER;
    /// The name that it registers; "-" for none.
    std::string name = "KRVSyncAgent";
    /// How long after its start it registers the name.
    double registerAfterSeconds = 0;
    /// Additions to this process's own.
    ChildProcess::Environment environment;
  };

  AgentProcess() : AgentProcess(Options()) {}

  /// Returns when the agent is reachable, or only running when it is to register late or not at
  /// all.
  explicit AgentProcess(const Options &options);

  /// What the agent does at the next calls (tests/support/agent/Script.h); a list begins with its
  /// first entry, whatever was called before.
  void setScript(NSDictionary *script) const;

  /// Its reply to one operation; removes all other operations' script.
  void answer(NSString *operation, id reply) const;

  /// The calls so far, oldest first: dictionaries as tests/support/agent/ScriptedAgent.h has them.
  NSArray *calls() const;

  /// The size of the record of the calls so far, for callsSince.
  std::size_t record() const;

  /// The calls after an earlier result of `record`.
  NSArray *callsSince(std::size_t record) const;

  /// The arguments of the last call.
  NSArray *lastArguments() const;

  /// The arguments of the last call of an operation; nil if there was none. For a test in which a
  /// background thread may call another one meanwhile.
  NSArray *lastArguments(NSString *operation) const;

  /// The names of the operations called so far.
  NSArray *operations() const;

  ChildProcess &process() { return *process_; }

 private:
  std::string folder_;
  std::unique_ptr<ChildProcess> process_;
};

/// A successful reply with this value.
NSDictionary *success(id value);

/// A refusal with this error number and message.
NSDictionary *refusal(int error, NSString *message);
