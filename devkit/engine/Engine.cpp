#include "devkit/engine/Engine.h"

#include "devkit/base/Paths.h"

namespace devkit {
namespace {

using std::chrono::system_clock;

/// How long after its last change an item counts as still on its way to the service.
constexpr std::chrono::seconds kUploadTime{2};

}  // namespace

EngineCode Engine::initialize() {
  store_ = std::make_unique<Store>(dataFolderPath(), syncedFolderPath());
  return EngineCode::Success;
}

EngineCode Engine::uninitialize() {
  if (!store_) return EngineCode::NotInitialized;
  store_.reset();
  return EngineCode::Success;
}

EngineCode Engine::syncState(const char *path, int *state) {
  if (!store_) return EngineCode::NotInitialized;
  if (!path || !state) return EngineCode::BadArgument;
  const auto relativePath = store_->folder().relative(path);
  const auto onDisk = relativePath ? store_->folder().look(*relativePath) : std::nullopt;
  if (!onDisk) return EngineCode::UnknownPath;
  const bool fresh = system_clock::now() - onDisk->changed < kUploadTime;
  *state = static_cast<int>(fresh ? SyncState::Uploading : SyncState::Synced);
  return EngineCode::Success;
}

EngineCode Engine::id(Kind kind, const char *path, char **id) {
  if (!store_) return EngineCode::NotInitialized;
  if (!path || !id) return EngineCode::BadArgument;
  const auto item = store_->items.byPath(path);
  if (!item) return EngineCode::UnknownPath;
  if (item->kind != kind) return kind == Kind::File ? EngineCode::NotAFile : EngineCode::NotAFolder;
  // The interface has no const; callers only read.
  *id = const_cast<char *>(ids_.insert(item->id).first->c_str());
  return EngineCode::Success;
}

}  // namespace devkit
