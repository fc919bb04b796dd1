#include "tests/support/CapturedLog.h"

#include <fcntl.h>
#include <unistd.h>

#include <fstream>
#include <iterator>
#include <sstream>

#include "tests/support/ChildProcess.h"

std::vector<std::string> logLinesIn(const std::string &output) {
  std::vector<std::string> lines;
  std::istringstream stream(output);
  for (std::string line; std::getline(stream, line);) {
    // "2026-11-21 04:37:24.013 Name[1:1] text"
    const auto mark = line.find("] ");
    if (mark != std::string::npos && line.starts_with("20")) lines.push_back(line.substr(mark + 2));
  }
  return lines;
}

CapturedLog::CapturedLog()
    : path_(newTemporaryFolder() + "/log"), formerStandardError_(dup(STDERR_FILENO)) {
  const int file = open(path_.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
  dup2(file, STDERR_FILENO);
  close(file);
}

CapturedLog::~CapturedLog() {
  dup2(formerStandardError_, STDERR_FILENO);
  close(formerStandardError_);
}

std::vector<std::string> CapturedLog::lines() const {
  std::ifstream file(path_);
  return logLinesIn({std::istreambuf_iterator<char>(file), {}});
}
