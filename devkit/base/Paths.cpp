#include "devkit/base/Paths.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>

namespace devkit {
namespace {

/// An empty variable counts as an absent one: that is the usual meaning of `VARIABLE= command`.
std::string environment(const char *name) {
  const char *value = std::getenv(name);
  return value ? value : "";
}

std::string withoutTrailingSlashes(std::string path) {
  while (path.size() > 1 && path.back() == '/') path.pop_back();
  return path;
}

std::string homeFolder() {
  if (auto home = environment("HOME"); !home.empty()) return home;
  const passwd *user = getpwuid(geteuid());
  return user && user->pw_dir ? user->pw_dir : "/";
}

}  // namespace

std::string loginName() {
  const passwd *user = getpwuid(geteuid());
  return user && user->pw_name ? user->pw_name : "";
}

std::string syncedFolderPath() {
  if (auto path = environment("BV_SYNCED_FOLDER"); !path.empty())
    return withoutTrailingSlashes(std::move(path));
  return "/Users/" + loginName() + "/Brisvale";
}

std::string dataFolderPath() {
  if (auto path = environment("BV_DEVKIT_DATA"); !path.empty())
    return withoutTrailingSlashes(std::move(path));
  auto shared = environment("XDG_DATA_HOME");
  // The convention that defines XDG_DATA_HOME says to ignore a relative one.
  if (shared.empty() || shared.front() != '/') shared = homeFolder() + "/.local/share";
  return withoutTrailingSlashes(std::move(shared)) + "/veldane-devkit";
}

}  // namespace devkit
