#pragma once

/// The sync engine library (libBVSyncEngine.I), a closed library of the same maker, linked by name.
/// Every function returns 0 on success; any other value is a failure whose meaning only the library
/// knows, and is handed on as it is. Used on the main thread only. Each query stands between
/// BvInitialize and BvUninitialize.
#ifdef __cplusplus
extern "C" {
#endif

/// Prepares the library for queries.
int BvInitialize(void);

/// Ends the queries begun by BvInitialize. Callers ignore the result.
int BvUninitialize(void);

/// Writes the sync state of the item at path (UTF-8) into *state.
int BvGetFileSyncState(const char *path, int *state);

/// Points *fileId at the server id of the file at path (UTF-8): a NUL-terminated UTF-8 string that
/// belongs to the library and is never freed by the caller.
int BvGetFileIdByName(const char *path, char **fileId);

/// As BvGetFileIdByName, for a folder.
int BvGetFolderIdByName(const char *path, char **folderId);

#ifdef __cplusplus
}
#endif
