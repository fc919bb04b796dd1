#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "devkit/store/Database.h"

namespace devkit {

/// What the sender chose for a link.
struct LinkOptions {
  /// The service's value for "no limit".
  static constexpr std::int64_t kUnlimited = -1;

  bool notifyOnDownload = false;
  bool requireEmail = false;
  std::int64_t maxDownloads = kUnlimited;
};

/// The links that were made, each with its options.
class Links {
 public:
  explicit Links(Database &database) : database_(database) {}

  /// Makes and stores a new link to the item. Every request makes another one, since the options
  /// belong to the link and not to the item.
  std::string make(std::string_view itemId, const LinkOptions &options);

  /// The options of a link, or nothing for a link that was never made.
  std::optional<LinkOptions> options(std::string_view link);

 private:
  Database &database_;
};

}  // namespace devkit
