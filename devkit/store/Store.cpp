#include "devkit/store/Store.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstring>

#include "devkit/store/Schema.h"

namespace devkit {
namespace {

/// Makes a folder and those above it; only the user may read them.
void makeFolders(const std::string &path) {
  for (auto slash = path.find('/', 1); slash != path.npos; slash = path.find('/', slash + 1))
    mkdir(path.substr(0, slash).c_str(), 0700);
  if (mkdir(path.c_str(), 0700) != 0 && errno != EEXIST)
    throw StoreError(path + ": " + std::strerror(errno));
}

std::string madeFolder(const std::string &path) {
  makeFolders(path);
  return path;
}

}  // namespace

Store::Store(const std::string &dataFolder, std::string syncedFolder)
    : folder_(std::move(syncedFolder)), database_(madeFolder(dataFolder) + "/store.sqlite") {
  prepareSchema(database_);
}

Account Store::account() {
  auto query = database_.prepare("SELECT email, first, last, company FROM account");
  if (!query.step()) throw StoreError("the store holds no account");
  return {query.textAt(0), query.textAt(1), query.textAt(2), query.textAt(3)};
}

}  // namespace devkit
