#include "devkit/store/Items.h"

#include "devkit/base/Paths.h"
#include "devkit/base/Token.h"

namespace devkit {
namespace {

Item itemAt(const Statement &row) {
  return {row.textAt(0), row.textAt(1), row.numberAt(2) ? Kind::Folder : Kind::File};
}

}  // namespace

std::string Item::name() const {
  const auto slash = relativePath.rfind('/');
  return slash == relativePath.npos ? relativePath : relativePath.substr(slash + 1);
}

std::optional<Item> Items::byPath(std::string_view path) {
  const auto relativePath = folder_.relative(path);
  if (!relativePath) return std::nullopt;
  const auto onDisk = folder_.look(*relativePath);
  if (!onDisk) return std::nullopt;
  // Only a folder can be meant by a path that ends in a slash.
  if (path.ends_with('/') && onDisk->kind == Kind::File) return std::nullopt;

  auto known = row(*relativePath);
  if (known && known->kind == onDisk->kind) return known;

  // Another process may insert the same item at the same moment: the first one's id counts.
  Transaction transaction(database_);
  database_.prepare("DELETE FROM items WHERE path = ? AND folder <> ?")
      .bytes(*relativePath)
      .number(onDisk->kind == Kind::Folder)
      .run();
  insert(*relativePath, onDisk->kind);
  transaction.commit();
  return row(*relativePath);
}

std::optional<Item> Items::byId(std::string_view id) {
  auto query = database_.prepare("SELECT id, path, folder FROM items WHERE id = ?");
  query.text(id);
  if (!query.step()) return std::nullopt;
  auto item = itemAt(query);
  if (item.relativePath == kHomeFolderName) return item;
  const auto onDisk = folder_.look(item.relativePath);
  if (!onDisk || onDisk->kind != item.kind) return std::nullopt;
  return item;
}

Item Items::home() {
  if (auto known = row(kHomeFolderName); known && known->kind == Kind::Folder) return *known;
  insert(kHomeFolderName, Kind::Folder);
  return row(kHomeFolderName).value();
}

std::optional<Item> Items::row(std::string_view relativePath) {
  auto query = database_.prepare("SELECT id, path, folder FROM items WHERE path = ?");
  query.bytes(relativePath);
  if (!query.step()) return std::nullopt;
  return itemAt(query);
}

void Items::insert(std::string_view relativePath, Kind kind) {
  database_.prepare("INSERT OR IGNORE INTO items (path, id, folder) VALUES (?, ?, ?)")
      .bytes(relativePath)
      .text(unguessableToken())
      .number(kind == Kind::Folder)
      .run();
}

}  // namespace devkit
