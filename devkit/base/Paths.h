#pragma once

#include <string>

/// Where the development kit finds things. Agent, engine and client are three programs that must
/// agree without talking to each other, so every rule stands here once.
namespace devkit {

/// The login name, as Foundation's NSUserName() answers it: the one of the effective user, whatever
/// LOGNAME and USER say.
std::string loginName();

/// The synced folder, without a trailing slash: "/Users/<login>/Brisvale" as the application
/// computes it. BV_SYNCED_FOLDER replaces it for the kit only, for demonstrations by people who may
/// not write to /Users and for tests.
std::string syncedFolderPath();

/// The folder that holds the store, the outbox and the log of operations: BV_DEVKIT_DATA, else
/// "veldane-devkit" in the user's data folder.
std::string dataFolderPath();

/// The local image of the user's home folder on the service, relative to the synced folder.
inline constexpr const char *kHomeFolderName = "MyDocs";

}  // namespace devkit
