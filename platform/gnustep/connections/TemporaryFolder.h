#pragma once

#include <string>

namespace platform {

/// The folder of this user's named connections, and why it cannot be trusted, if so.
struct TemporaryFolder {
  std::string path;

  /// Empty if it can be used, otherwise the reason, as the end of a sentence with the path. Names
  /// in a folder that another user has prepared may lead to that user's processes.
  std::string problem;
};

/// The folder that the platform chooses: TEMP, else TMP, else "/tmp", if only this user has access
/// to it; otherwise a folder in it with the user identifier in its name, which is created if
/// missing. The platform would also use a symbolic link, and a folder that others could write to
/// until it restricts it. Any thread.
TemporaryFolder temporaryFolder();

/// Creates the folders of names and of ports in a temporary folder where they are missing. Answers
/// whether both exist.
bool makePortFolders(const std::string &temporaryFolder);

}  // namespace platform
