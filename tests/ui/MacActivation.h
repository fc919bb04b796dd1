#pragma once

/// While one of these lives, ordering a window in front does not unhide its application, which this
/// platform does by unhide:, and activation is a request that the system does not grant, as it may
/// since macOS 14. Main thread.
class MacActivation {
 public:
  MacActivation();
  ~MacActivation();
  MacActivation(const MacActivation &) = delete;
  MacActivation &operator=(const MacActivation &) = delete;

  /// How often activation has been requested.
  int requests() const { return requests_; }

  /// Another request. Called by the replaced method.
  void note() { ++requests_; }

 private:
  int requests_ = 0;
};
