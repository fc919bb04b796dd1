#include "devkit/client/Item.h"

#include <sys/stat.h>

#include <filesystem>
#include <optional>
#include <system_error>

#include "app/BVSyncEngine.h"
#include "devkit/base/Paths.h"
#include "devkit/base/Text.h"

namespace devkit {
namespace {

namespace fs = std::filesystem;

fs::path withoutDetours(const std::string &path) {
  std::error_code failure;
  auto full = fs::absolute(path, failure);
  return (failure ? fs::path(path) : full).lexically_normal();
}

/// The path relative to the synced folder where that is given by another path, such as a link to
/// it.
std::optional<std::string> relativeByOtherWay(const fs::path &path, const SyncedFolder &folder) {
  std::error_code failure;
  const auto parent = fs::canonical(path.parent_path(), failure);
  if (failure) return std::nullopt;
  const auto root = fs::canonical(folder.root(), failure);
  if (failure) return std::nullopt;
  return SyncedFolder(root.string()).relative((parent / path.filename()).string());
}

bool isThere(const fs::path &path) {
  struct stat found = {};
  return lstat(path.c_str(), &found) == 0;
}

Failure notThere(const std::string &path) {
  return {Exit::NotThere, shown(path) + ": no such file or folder"};
}

}  // namespace

std::variant<LocalItem, Failure> findItem(const std::string &path, const SyncedFolder &folder) {
  auto full = withoutDetours(path);
  // A trailing slash, which shells add to folders, names the same item.
  if (!full.has_filename() && full.has_relative_path()) full = full.parent_path();

  auto relativePath = folder.relative(full.string());
  if (!relativePath) {
    if (!isThere(full)) return notThere(path);
    relativePath = relativeByOtherWay(full, folder);
  }
  if (!relativePath)
    return Failure{Exit::Outside,
                   shown(path) + " is not inside the synced folder " + shown(folder.root())};

  const auto onDisk = folder.look(*relativePath);
  if (!onDisk) return notThere(path);
  if (path.ends_with('/') && onDisk->kind == Kind::File) return notThere(path);
  return LocalItem{.path = folder.root() + "/" + *relativePath,
                   .name = full.filename().string(),
                   .kind = onDisk->kind,
                   .isHome = *relativePath == kHomeFolderName};
}

std::variant<std::string, Failure> engineId(const LocalItem &item) {
  char *id = nullptr;
  int code = BvInitialize();
  if (code == 0)
    code = item.kind == Kind::Folder ? BvGetFolderIdByName(item.path.c_str(), &id)
                                     : BvGetFileIdByName(item.path.c_str(), &id);
  // The id belongs to the library, so it is copied before the library is uninitialised.
  const std::string copy = code == 0 && id ? id : "";
  BvUninitialize();
  if (!copy.empty()) return copy;
  return Failure{Exit::NoId, "the sync engine has no id for " + shown(item.path) + " (code " +
                                 std::to_string(code) + ")"};
}

std::string shown(const std::string &path) {
  auto text = validUtf8(path);
  for (char &character : text)
    if (static_cast<unsigned char>(character) < ' ' || character == '\x7F') character = '?';
  return text;
}

}  // namespace devkit
