#pragma once

#include "devkit/store/Database.h"

namespace devkit {

/// Folders of the sample tree that the sample account has shared or was given, relative to the
/// synced folder.
inline constexpr const char *kSampleSharedFolder = "MyDocs/Project Aurora";
inline constexpr const char *kSampleForeignFolder = "Team Handbook";

/// Enters the account that a new store begins with: its holder, colleagues in several languages, a
/// few people from outside, a folder shared with three of them and one that a colleague shares with
/// the holder.
void addSampleAccount(Database &database);

}  // namespace devkit
