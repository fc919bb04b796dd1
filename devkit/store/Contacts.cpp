#include "devkit/store/Contacts.h"

#include <array>

namespace devkit {
namespace {

constexpr auto kColumns = "email, first, last, last_first, employee, listed";

Contact contactAt(const Statement &row) {
  return {row.textAt(0),        row.textAt(1),        row.textAt(2),
          row.numberAt(3) != 0, row.numberAt(4) != 0, row.numberAt(5) != 0};
}

struct GivenName {
  const char *name;
  const char *inAddress;
};

constexpr std::array<GivenName, 16> kFirstNames = {{{"Amélie", "amelie"},
                                                    {"Bogdan", "bogdan"},
                                                    {"Chloë", "chloe"},
                                                    {"Dmitri", "dmitri"},
                                                    {"Eleanor", "eleanor"},
                                                    {"Farid", "farid"},
                                                    {"Gwen", "gwen"},
                                                    {"Håkon", "hakon"},
                                                    {"Ines", "ines"},
                                                    {"Jürgen", "juergen"},
                                                    {"Kaito", "kaito"},
                                                    {"Leila", "leila"},
                                                    {"Mary Ann", "mary.ann"},
                                                    {"Nikos", "nikos"},
                                                    {"Oluchi", "oluchi"},
                                                    {"Paweł", "pawel"}}};

constexpr std::array<GivenName, 13> kLastNames = {{{"Abbott", "abbott"},
                                                   {"Bergström", "bergstrom"},
                                                   {"Castellanos", "castellanos"},
                                                   {"Dąbrowski", "dabrowski"},
                                                   {"Eze", "eze"},
                                                   {"Fujimoto", "fujimoto"},
                                                   {"García López", "garcia"},
                                                   {"Haddad", "haddad"},
                                                   {"Iversen", "iversen"},
                                                   {"O'Connell", "oconnell"},
                                                   {"Petrović", "petrovic"},
                                                   {"Smith", "smith"},
                                                   {"van der Berg", "vanderberg"}}};

}  // namespace

std::string Contact::displayName() const {
  if (firstName.empty() || lastName.empty()) return firstName + lastName;
  return lastFirst ? lastName + ", " + firstName : firstName + " " + lastName;
}

void Contacts::add(const Contact &contact) {
  database_
      .prepare(
          "INSERT INTO contacts (email, first, last, last_first, employee, listed)"
          " VALUES (?, ?, ?, ?, ?, ?)")
      .text(contact.email)
      .text(contact.firstName)
      .text(contact.lastName)
      .number(contact.lastFirst)
      .number(contact.employee)
      .number(contact.listed)
      .run();
}

void Contacts::fillWith(std::int64_t count) {
  Transaction transaction(database_);
  database_.execute("DELETE FROM contacts");
  auto insert = database_.prepare(
      "INSERT INTO contacts (email, first, last, last_first, employee, listed)"
      " VALUES (?, ?, ?, ?, 1, 1)");
  for (std::int64_t index = 0; index < count; ++index) {
    const auto contact = generatedContact(index);
    insert.text(contact.email)
        .text(contact.firstName)
        .text(contact.lastName)
        .number(contact.lastFirst)
        .run();
  }
  transaction.commit();
}

std::optional<Contact> Contacts::find(std::string_view email) {
  auto query = database_.prepare(
      (std::string("SELECT ") + kColumns + " FROM contacts WHERE email = ?").c_str());
  query.text(email);
  if (!query.step()) return std::nullopt;
  return contactAt(query);
}

std::vector<Contact> Contacts::addressBook() {
  auto query = database_.prepare((std::string("SELECT ") + kColumns +
                                  " FROM contacts WHERE listed AND employee ORDER BY rowid")
                                     .c_str());
  std::vector<Contact> contacts;
  while (query.step()) contacts.push_back(contactAt(query));
  return contacts;
}

std::int64_t Contacts::revision() {
  auto query = database_.prepare("SELECT value FROM revisions WHERE name = 'contacts'");
  return query.step() ? query.numberAt(0) : 0;
}

Contact generatedContact(std::int64_t index) {
  const auto position = static_cast<std::size_t>(index);
  const auto &first = kFirstNames[position % kFirstNames.size()];
  const auto &last = kLastNames[position % kLastNames.size()];
  return {.email = std::string(first.inAddress) + "." + last.inAddress + "." +
                   std::to_string(index) + "@brisvale.test",
          .firstName = first.name,
          .lastName = std::string(last.name) + " " + std::to_string(index),
          .lastFirst = index % 3 != 0};
}

}  // namespace devkit
