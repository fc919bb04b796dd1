#pragma once

#include <string>
#include <vector>

/// Log lines in their order.
using Lines = std::vector<std::string>;

/// What is logged when the agent or the service could not be reached.
inline constexpr const char *kNoReplyLine =
    "Getting null data from rest API(machine offline or server down)";

/// While one of these lives, what this process logs or otherwise writes to standard error goes to a
/// file.
class CapturedLog {
 public:
  CapturedLog();
  ~CapturedLog();
  CapturedLog(const CapturedLog &) = delete;
  CapturedLog &operator=(const CapturedLog &) = delete;

  /// All lines so far, without the time and process that the platform puts in front of each.
  Lines lines() const;

 private:
  std::string path_;
  int formerStandardError_;
};

/// All lines in the output of another process, without the time and process in front of those that
/// it has logged.
Lines logLinesIn(const std::string &output);
