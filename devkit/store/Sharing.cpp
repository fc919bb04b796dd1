#include "devkit/store/Sharing.h"

namespace devkit {

std::vector<Access> Sharing::of(std::string_view itemId) {
  auto query = database_.prepare(
      "SELECT type, email, first, last, can_download, can_upload, can_delete, is_owner"
      " FROM access WHERE item = ? ORDER BY is_owner DESC, rowid");
  query.text(itemId);
  std::vector<Access> entries;
  while (query.step()) {
    entries.push_back(
        {query.textAt(0), query.textAt(1), query.textAt(2), query.textAt(3),
         Rights{query.numberAt(4) != 0, query.numberAt(5) != 0, query.numberAt(6) != 0},
         query.numberAt(7) != 0});
  }
  return entries;
}

bool Sharing::belongsToSomebodyElse(std::string_view itemId, std::string_view userEmail) {
  return database_.prepare("SELECT 1 FROM access WHERE item = ? AND is_owner AND email <> ?")
      .text(itemId)
      .text(userEmail)
      .step();
}

void Sharing::grant(std::string_view itemId, const Access &access) {
  database_
      .prepare(
          "INSERT INTO access (item, type, email, first, last, can_download, can_upload,"
          " can_delete, is_owner) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)"
          " ON CONFLICT (item, email) DO UPDATE SET first = excluded.first,"
          " last = excluded.last, can_download = excluded.can_download,"
          " can_upload = excluded.can_upload, can_delete = excluded.can_delete")
      .text(itemId)
      .text(access.type)
      .text(access.email)
      .text(access.firstName)
      .text(access.lastName)
      .number(access.rights.download)
      .number(access.rights.upload)
      .number(access.rights.remove)
      .number(access.owner)
      .run();
}

bool Sharing::revoke(std::string_view itemId, std::string_view email) {
  return database_
      .prepare(
          "DELETE FROM access WHERE item = ? AND email = ? AND type = 'user'"
          " AND NOT is_owner RETURNING 1")
      .text(itemId)
      .text(email)
      .step();
}

}  // namespace devkit
