#pragma once

#include <string>

#include "devkit/mail/MailMessage.h"

namespace devkit {

/// The folder of the mails that a real service would have sent.
class Outbox {
 public:
  explicit Outbox(std::string folder) : folder_(std::move(folder)) {}

  /// Writes the mail and returns the path of its file. Readers never see a partial mail. Throws
  /// std::system_error when it cannot be written.
  std::string put(const MailMessage &mailMessage);

 private:
  std::string folder_;
};

}  // namespace devkit
