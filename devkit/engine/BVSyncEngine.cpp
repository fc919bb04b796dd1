#include "app/BVSyncEngine.h"

#include <cstdio>
#include <exception>

#include "devkit/engine/Engine.h"

using devkit::EngineCode;
using devkit::Kind;

namespace {

devkit::Engine &engine() {
  // Never destroyed: a caller may still hold an id while the process ends.
  static auto *const instance = new devkit::Engine;
  return *instance;
}

/// Callers are C, so no exception may leave this.
template <typename Query>
int answer(Query query) noexcept {
  try {
    return static_cast<int>(query());
  } catch (const std::exception &failure) {
    std::fprintf(stderr, "BVSyncEngine (development kit): %s\n", failure.what());
    return static_cast<int>(EngineCode::StoreUnavailable);
  }
}

}  // namespace

#pragma GCC visibility push(default)

int BvInitialize(void) {
  return answer([] { return engine().initialize(); });
}

int BvUninitialize(void) {
  return answer([] { return engine().uninitialize(); });
}

int BvGetFileSyncState(const char *path, int *state) {
  return answer([=] { return engine().syncState(path, state); });
}

int BvGetFileIdByName(const char *path, char **fileId) {
  return answer([=] { return engine().id(Kind::File, path, fileId); });
}

int BvGetFolderIdByName(const char *path, char **folderId) {
  return answer([=] { return engine().id(Kind::Folder, path, folderId); });
}

#pragma GCC visibility pop
