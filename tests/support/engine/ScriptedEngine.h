#pragma once

#include <map>
#include <string>
#include <vector>

/// A sync engine library that does what a test says, in the test's own process, and records each
/// call. It replaces the closed library.
struct ScriptedEngine {
  /// What the functions return.
  int initializeCode = 0;
  int queryCode = 0;

  /// The ids that it knows, by path: of files and of folders. A path that is in neither gets
  /// kUnknownPath. A null pointer as id is possible: the library returns 0 and stores nothing.
  std::map<std::string, const char *> files;
  std::map<std::string, const char *> folders;

  /// The calls in their order, "BvGetFileIdByName /path" for example.
  std::vector<std::string> calls;

  /// What the out-pointer held when the last id query began.
  const char *initialPointer = nullptr;

  static constexpr int kUnknownPath = 17;

  /// The one that the functions of the library use.
  static ScriptedEngine &shared();
};
