#pragma once

#import <Foundation/Foundation.h>

#include <string>
#include <vector>

#include "tests/support/ChildProcess.h"

@class ContextMenuPlugin;
@class DefaultModeRunner;

/// The endpoint of this process, which is made by the first use and never released: the name can be
/// taken once in a process.
ContextMenuPlugin *pluginEndpoint();

/// The command of a plug-in's call that closes the open window and opens one of its own. This
/// process is registered as the endpoint.
std::vector<std::string> callThatOpensAnotherWindow();

/// A call of the plug-in, from a process of its own, that comes while an action waits for the
/// agent. To be made right before the action: the default mode of the run loop then runs once
/// inside that wait, as the platform runs it in calls of its own, for long enough to serve a call.
class CallDuringAction {
 public:
  CallDuringAction();
  ~CallDuringAction();
  CallDuringAction(const CallDuringAction &) = delete;
  CallDuringAction &operator=(const CallDuringAction &) = delete;

  /// A script's entry for the agent's operation that the action waits for: this one, but with the
  /// reply held until the default mode runs.
  NSDictionary *held(NSDictionary *entry) const;

  /// Whether the default mode has run and the call was not served in it.
  bool hasWaited();

  /// Whether the call is served now; handles events meanwhile.
  bool isServed();

 private:
  std::string hold_;
  ChildProcess client_;
  DefaultModeRunner *runner_;
};
