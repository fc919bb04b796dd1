#include "tests/devkit/Kit.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

#include "tests/support/ChildProcess.h"

namespace {

/// Goes down component by component, because a whole path may be longer than the system allows.
/// Returns a descriptor of the folder that holds the last component, which is left in relativePath.
int folderOf(const std::string &root, std::string &relativePath) {
  int folder = open(root.c_str(), O_RDONLY | O_DIRECTORY);
  for (auto slash = relativePath.find('/'); slash != std::string::npos;
       slash = relativePath.find('/')) {
    const auto component = relativePath.substr(0, slash);
    mkdirat(folder, component.c_str(), 0700);
    const int next = openat(folder, component.c_str(), O_RDONLY | O_DIRECTORY);
    close(folder);
    folder = next;
    relativePath.erase(0, slash + 1);
  }
  return folder;
}

}  // namespace

Kit::Kit() {
  folder_ = newTemporaryFolder();
  syncedFolder_ = folder_ + "/Brisvale";
  dataFolder_ = folder_ + "/data";
  std::filesystem::create_directory(syncedFolder_);
  setenv("BV_SYNCED_FOLDER", syncedFolder_.c_str(), 1);
  setenv("BV_DEVKIT_DATA", dataFolder_.c_str(), 1);
}

Kit::~Kit() {
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

void Kit::empty() const {
  std::filesystem::remove_all(dataFolder_);
  std::filesystem::remove_all(syncedFolder_);
  std::filesystem::create_directory(syncedFolder_);
}

std::string Kit::path(const std::string &relativePath) const {
  return syncedFolder_ + "/" + relativePath;
}

std::string Kit::makeFile(const std::string &relativePath) const {
  auto name = relativePath;
  const int folder = folderOf(syncedFolder_, name);
  close(openat(folder, name.c_str(), O_WRONLY | O_CREAT, 0600));
  close(folder);
  return path(relativePath);
}

std::string Kit::makeFolder(const std::string &relativePath) const {
  auto name = relativePath;
  const int folder = folderOf(syncedFolder_, name);
  mkdirat(folder, name.c_str(), 0700);
  close(folder);
  return path(relativePath);
}

std::string Kit::data(const std::string &name) const {
  std::ifstream file(dataFolder_ + "/" + name);
  return {std::istreambuf_iterator<char>(file), {}};
}
