#include "tests/support/engine/ScriptedEngine.h"

#include "app/BVSyncEngine.h"

ScriptedEngine &ScriptedEngine::shared() {
  static ScriptedEngine engine;
  return engine;
}

namespace {

int lookUp(const char *function, const std::map<std::string, const char *> &ids, const char *path,
           char **id) {
  ScriptedEngine &engine = ScriptedEngine::shared();
  engine.calls.push_back(std::string(function) + " " + path);
  engine.initialPointer = *id;
  if (engine.queryCode != 0) return engine.queryCode;
  const auto found = ids.find(path);
  if (found == ids.end()) return ScriptedEngine::kUnknownPath;
  *id = const_cast<char *>(found->second);
  return 0;
}

}  // namespace

int BvInitialize(void) {
  ScriptedEngine::shared().calls.push_back("BvInitialize");
  return ScriptedEngine::shared().initializeCode;
}

int BvUninitialize(void) {
  ScriptedEngine::shared().calls.push_back("BvUninitialize");
  return 0;
}

int BvGetFileSyncState(const char *path, int *state) {
  ScriptedEngine &engine = ScriptedEngine::shared();
  engine.calls.push_back(std::string("BvGetFileSyncState ") + path);
  *state = 4711;
  return engine.queryCode;
}

int BvGetFileIdByName(const char *path, char **fileId) {
  return lookUp("BvGetFileIdByName", ScriptedEngine::shared().files, path, fileId);
}

int BvGetFolderIdByName(const char *path, char **folderId) {
  return lookUp("BvGetFolderIdByName", ScriptedEngine::shared().folders, path, folderId);
}
