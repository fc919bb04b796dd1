#include "devkit/store/Schema.h"

#include "devkit/store/SampleAccount.h"

namespace devkit {
namespace {

constexpr int kVersion = 1;

// Paths are bytes and not text, because a file name need not be UTF-8. Addresses are compared
// without regard to letter case, as every mail service does.
constexpr auto kTables = R"sql(
CREATE TABLE account (
  email TEXT NOT NULL COLLATE NOCASE,
  first TEXT NOT NULL,
  last TEXT NOT NULL,
  company TEXT NOT NULL
);
CREATE TABLE items (
  path BLOB NOT NULL UNIQUE,
  id TEXT NOT NULL UNIQUE,
  folder INTEGER NOT NULL
);
CREATE TABLE links (
  link TEXT NOT NULL UNIQUE,
  item TEXT NOT NULL,
  notify INTEGER NOT NULL,
  require_email INTEGER NOT NULL,
  max_downloads INTEGER NOT NULL,
  made TEXT NOT NULL DEFAULT CURRENT_TIMESTAMP
);
CREATE TABLE access (
  item TEXT NOT NULL,
  type TEXT NOT NULL,
  email TEXT NOT NULL COLLATE NOCASE,
  first TEXT NOT NULL,
  last TEXT NOT NULL,
  can_download INTEGER NOT NULL,
  can_upload INTEGER NOT NULL,
  can_delete INTEGER NOT NULL,
  is_owner INTEGER NOT NULL,
  UNIQUE (item, email)
);
CREATE TABLE contacts (
  email TEXT NOT NULL UNIQUE COLLATE NOCASE,
  first TEXT NOT NULL,
  last TEXT NOT NULL,
  last_first INTEGER NOT NULL,
  employee INTEGER NOT NULL,
  listed INTEGER NOT NULL
);
CREATE TABLE mails (
  item TEXT NOT NULL,
  link TEXT NOT NULL,
  recipients TEXT NOT NULL,
  subject TEXT NOT NULL,
  message TEXT NOT NULL,
  copy_to_sender INTEGER NOT NULL,
  file TEXT NOT NULL,
  sent TEXT NOT NULL DEFAULT CURRENT_TIMESTAMP
);
CREATE TABLE revisions (name TEXT NOT NULL UNIQUE, value INTEGER NOT NULL);
INSERT INTO revisions VALUES ('contacts', 1);
CREATE TRIGGER contact_added AFTER INSERT ON contacts BEGIN
  UPDATE revisions SET value = value + 1 WHERE name = 'contacts';
END;
CREATE TRIGGER contact_changed AFTER UPDATE ON contacts BEGIN
  UPDATE revisions SET value = value + 1 WHERE name = 'contacts';
END;
CREATE TRIGGER contact_removed AFTER DELETE ON contacts BEGIN
  UPDATE revisions SET value = value + 1 WHERE name = 'contacts';
END;
PRAGMA user_version = 1;
)sql";

std::int64_t version(Database &database) {
  auto query = database.prepare("PRAGMA user_version");
  query.step();
  return query.numberAt(0);
}

}  // namespace

void prepareSchema(Database &database) {
  if (version(database) == 0) {
    Transaction transaction(database);
    // Another process may have made them while this one waited for the lock.
    if (version(database) == 0) {
      database.execute(kTables);
      addSampleAccount(database);
    }
    transaction.commit();
  }
  if (version(database) > kVersion)
    throw StoreError("the store was made by a later version of the development kit");
}

}  // namespace devkit
