#pragma once

#include <string>

/// Where the development kit finds things. Agent, engine and client are separate programs that must
/// agree without communicating, so each rule is implemented once, here.
namespace devkit {

/// The login name, as Foundation's NSUserName() returns it: the one of the effective user, whatever
/// LOGNAME and USER say.
std::string loginName();

/// The synced folder, without a trailing slash: "/Users/<login>/Brisvale" as the application
/// computes it. BV_SYNCED_FOLDER replaces it for the kit only, for tests, and for demonstrations by
/// users who may not write to /Users.
std::string syncedFolderPath();

/// The folder that holds the store, the outbox and the log of operations: BV_DEVKIT_DATA, else
/// "veldane-devkit" in the user's data folder.
std::string dataFolderPath();

/// The local image of the user's home folder on the service, relative to the synced folder.
inline constexpr const char *kHomeFolderName = "MyDocs";

}  // namespace devkit
