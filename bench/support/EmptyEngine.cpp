// A sync engine library that does nothing. The application starts with it here: the real one is not
// ours, and the development kit's opens a database.
#include "app/BVSyncEngine.h"

namespace {

constexpr int kUnknownPath = 1;

}  // namespace

int BvInitialize(void) {
  return 0;
}

int BvUninitialize(void) {
  return 0;
}

int BvGetFileSyncState(const char *, int *) {
  return kUnknownPath;
}

int BvGetFileIdByName(const char *, char **) {
  return kUnknownPath;
}

int BvGetFolderIdByName(const char *, char **) {
  return kUnknownPath;
}
