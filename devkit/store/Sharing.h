#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "devkit/store/Database.h"

namespace devkit {

/// What a person may do with a folder.
struct Rights {
  bool download = false;
  bool upload = false;
  bool remove = false;

  bool operator==(const Rights &) const = default;
};

/// One entry of a folder's access list.
struct Access {
  /// "user" for a person; groups are listed by the service too.
  std::string type = "user";
  std::string email;
  std::string firstName;
  std::string lastName;
  Rights rights;
  bool owner = false;
};

/// Who has access to which folder.
class Sharing {
 public:
  explicit Sharing(Database &database) : database_(database) {}

  /// The entries of a folder in the order in which they were granted, the owner first. A folder
  /// that was never shared has no entry at all.
  std::vector<Access> of(std::string_view itemId);

  /// Whether the folder belongs to another person and the user was only given access to it.
  bool belongsToSomebodyElse(std::string_view itemId, std::string_view userEmail);

  /// Adds an entry, or changes the names and rights of the one that the address has.
  void grant(std::string_view itemId, const Access &access);

  /// Removes a person's entry; false when there was none, or only the owner's.
  bool revoke(std::string_view itemId, std::string_view email);

 private:
  Database &database_;
};

}  // namespace devkit
