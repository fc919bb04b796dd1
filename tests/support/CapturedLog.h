#pragma once

#include <string>
#include <vector>

/// While one of these lives, the system log lines of this process (its standard error) go to a
/// file.
class CapturedLog {
 public:
  CapturedLog();
  ~CapturedLog();
  CapturedLog(const CapturedLog &) = delete;
  CapturedLog &operator=(const CapturedLog &) = delete;

  /// The lines so far, without the time and process that the platform puts in front of each.
  std::vector<std::string> lines() const;

 private:
  std::string path_;
  int formerStandardError_;
};

/// The log lines in the output of another process, without the time and process in front.
std::vector<std::string> logLinesIn(const std::string &output);
