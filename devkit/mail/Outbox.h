#pragma once

#include <string>

#include "devkit/mail/MailMessage.h"

namespace devkit {

/// The folder in which the mails lie that a real service would have sent.
class Outbox {
 public:
  explicit Outbox(std::string folder) : folder_(std::move(folder)) {}

  /// Writes the mail and returns the path of its file. A reader never sees half a mail. Throws
  /// std::system_error when it cannot be written.
  std::string put(const MailMessage &mailMessage);

 private:
  std::string folder_;
};

}  // namespace devkit
