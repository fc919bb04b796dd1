#include "tests/support/CapturedLog.h"

#include <fcntl.h>
#include <unistd.h>

#include <fstream>
#include <iterator>
#include <sstream>

#include "tests/support/ChildProcess.h"

Lines logLinesIn(const std::string &output) {
  Lines lines;
  std::istringstream stream(output);
  for (std::string line; std::getline(stream, line);) {
    // "2026-11-21 04:37:24.013 Name[1:1] text". Any other line is kept as it is: it would be the
    // rest of a text with line breaks, or what a library has printed.
    const auto mark = line.starts_with("20") ? line.find("] ") : std::string::npos;
    lines.push_back(mark == std::string::npos ? line : line.substr(mark + 2));
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

Lines CapturedLog::lines() const {
  std::ifstream file(path_);
  return logLinesIn({std::istreambuf_iterator<char>(file), {}});
}
