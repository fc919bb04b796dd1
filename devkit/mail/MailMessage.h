#pragma once

#include <ctime>
#include <string>
#include <vector>

namespace devkit {

/// A mail as the service would send it.
struct MailMessage {
  std::string senderName;
  std::string senderAddress;
  /// Each of them passed isAddress().
  std::vector<std::string> recipients;
  bool copyToSender = false;
  std::string subject;
  /// Plain text; the last line is the link.
  std::string body;
  std::time_t date = 0;
  /// Makes the mail's identity; unique for each mail.
  std::string token;
};

/// The mail in the form of an .eml file: what any mail program opens. Texts are UTF-8.
std::string written(const MailMessage &mailMessage);

}  // namespace devkit
