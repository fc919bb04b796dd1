#pragma once

#include <memory>
#include <string>
#include <utility>

/// Whether a test uses the application of the tests before it and leaves it running for the next.
enum class Application { Shared, OfItsOwn };

/// The application with the processes that it works with, kept running from one test of this
/// program to the next, because starting them takes longer than most tests do. Of all kinds
/// together one runs at a time: the application and both agents register the same names.
///
/// On the main thread.
class SharedSystem {
 public:
  virtual ~SharedSystem() = default;
  SharedSystem(const SharedSystem &) = delete;
  SharedSystem &operator=(const SharedSystem &) = delete;

  /// The running one, if it was made for this purpose; otherwise that one is ended, and a new one
  /// made from these arguments. It belongs to this class and lives until `end` or another purpose.
  /// purpose: one text for one kind of System and what it is started with.
  template <class System, class... Arguments>
  static System &runningFor(const std::string &purpose, Arguments &&...arguments) {
    if (running_ == nullptr || purpose_ != purpose) {
      end();
      running_ = std::make_unique<System>(std::forward<Arguments>(arguments)...);
      purpose_ = purpose;
    }
    return static_cast<System &>(*running_);
  }

  /// Ends the processes, if any run: after a test that failed or leaves something behind, and
  /// before one that starts its own.
  static void end();

 protected:
  SharedSystem() = default;

 private:
  static std::unique_ptr<SharedSystem> running_;
  static std::string purpose_;
};
