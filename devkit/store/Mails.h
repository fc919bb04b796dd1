#pragma once

#include <cstdint>
#include <string>

#include "devkit/store/Database.h"

namespace devkit {

/// What the service remembers of a mail that it sent; the mail itself lies in the outbox.
struct MailRecord {
  std::string itemId;
  std::string link;
  std::string recipients;
  std::string subject;
  std::string message;
  bool copyToSender = false;
  std::string file;
};

class Mails {
 public:
  explicit Mails(Database &database) : database_(database) {}

  void record(const MailRecord &mail);
  std::int64_t count();

 private:
  Database &database_;
};

}  // namespace devkit
