#include "devkit/store/Links.h"

#include "devkit/base/Token.h"

namespace devkit {
namespace {

/// A host in a reserved top-level domain, so that no link of the kit ever leads anywhere.
constexpr const char *kLinkPrefix = "https://brisvale.test/s/";

}  // namespace

std::string Links::make(std::string_view itemId, const LinkOptions &options) {
  auto link = kLinkPrefix + unguessableToken();
  database_
      .prepare(
          "INSERT INTO links (link, item, notify, require_email, max_downloads)"
          " VALUES (?, ?, ?, ?, ?)")
      .text(link)
      .text(itemId)
      .number(options.notifyOnDownload)
      .number(options.requireEmail)
      .number(options.maxDownloads)
      .run();
  return link;
}

std::optional<LinkOptions> Links::options(std::string_view link) {
  auto query =
      database_.prepare("SELECT notify, require_email, max_downloads FROM links WHERE link = ?");
  query.text(link);
  if (!query.step()) return std::nullopt;
  return LinkOptions{query.numberAt(0) != 0, query.numberAt(1) != 0, query.numberAt(2)};
}

}  // namespace devkit
