#pragma once

#include <string>

#include "devkit/base/SyncedFolder.h"
#include "devkit/store/Contacts.h"
#include "devkit/store/Database.h"
#include "devkit/store/Items.h"
#include "devkit/store/Links.h"
#include "devkit/store/Mails.h"
#include "devkit/store/Sharing.h"

namespace devkit {

/// The holder of the account.
struct Account {
  std::string email;
  std::string firstName;
  std::string lastName;
  std::string company;
};

/// The state of the service as one user sees it. Agent, engine and tests open the same data folder
/// at the same time, each with a Store of its own; one Store belongs to one thread at a time.
class Store {
 public:
  /// Opens the store in dataFolder, making the folder (for the user only) and the sample account
  /// when they are not there. Throws StoreError when that cannot be done.
  Store(const std::string &dataFolder, std::string syncedFolder);

  const SyncedFolder &folder() const { return folder_; }
  Account account();

 private:
  SyncedFolder folder_;
  Database database_;

 public:
  // Below the two members that they refer to, because members are constructed in the order of their
  // declarations.
  Items items{database_, folder_};
  Links links{database_};
  Sharing sharing{database_};
  Contacts contacts{database_};
  Mails mails{database_};
};

}  // namespace devkit
