#pragma once

#include <memory>
#include <string>

#include "tests/support/ChildProcess.h"

/// A session bus of a test's own, which starts no service by itself.
class SessionBus {
 public:
  /// Waits until it listens.
  SessionBus();

  const std::string &address() const { return address_; }
  ChildProcess &process() { return *process_; }

 private:
  std::string address_;
  std::unique_ptr<ChildProcess> process_;
};

/// A desktop's portal of settings on such a bus, a process of its own (scripted_portal.cpp).
class ScriptedPortal {
 public:
  explicit ScriptedPortal(const SessionBus &bus);

  /// Sends it a command, and waits until it has obeyed.
  void tell(const std::string &command);

  /// The same for usual settings of the portal.
  void setDark(bool isDark) {
    tell("set org.freedesktop.appearance color-scheme u " + scheme(isDark));
  }
  void changeToDark(bool isDark) {
    tell("change org.freedesktop.appearance color-scheme u " + scheme(isDark));
  }

 private:
  static std::string scheme(bool isDark) { return isDark ? "1" : "2"; }

  std::string commands_;
  ChildProcess process_;
  int told_ = 0;
};
