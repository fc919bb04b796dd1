#pragma once

#include <string>

namespace platform {

/// The folder in which the platform keeps this user's named connections, and what forbids to trust
/// it.
struct TemporaryFolder {
  std::string path;

  /// Empty: it can be used. Otherwise the end of a sentence that says why not, with the path. Names
  /// in a folder that somebody else has prepared may lead to that somebody.
  std::string problem;
};

/// The folder as the platform chooses it: what TEMP, or else TMP, says, or else "/tmp", when that
/// is open to this user alone; otherwise a folder in it with this user's number in its name. Makes
/// that folder where there is none. The platform would also take a symbolic link for it, and a
/// folder that others could write to until now, and close it to them only then. Any thread.
TemporaryFolder temporaryFolder();

/// Makes the folders of names and of ports in a temporary folder, where they are missing. Answers
/// whether both are there.
bool makePortFolders(const std::string &temporaryFolder);

}  // namespace platform
