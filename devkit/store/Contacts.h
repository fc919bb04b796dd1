#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "devkit/store/Database.h"

namespace devkit {

/// A person whom the service knows.
struct Contact {
  std::string email;
  std::string firstName;
  std::string lastName;
  /// Entered as "Last, First"; otherwise as "First Last".
  bool lastFirst = false;
  /// Whether the person works for the user's company; partners and customers do not.
  bool employee = true;
  /// Whether the colleagues' address book lists the person. New employees are not listed at once.
  bool listed = true;

  /// The name as the address book gives it.
  std::string displayName() const;
};

/// The people whom the service knows, in the order in which they were entered.
class Contacts {
 public:
  explicit Contacts(Database &database) : database_(database) {}

  void add(const Contact &contact);

  /// Replaces all by `count` generated people, in one transaction.
  void fillWith(std::int64_t count);

  /// The person with that address, whatever its letter case.
  std::optional<Contact> find(std::string_view email);

  /// The colleagues' address book.
  std::vector<Contact> addressBook();

  /// A number that changes whenever any process changes a contact; cheap to read.
  std::int64_t revision();

 private:
  Database &database_;
};

/// Contact number `index` of the generated ones: always the same person for the same number, with
/// an address of its own.
Contact generatedContact(std::int64_t index);

}  // namespace devkit
