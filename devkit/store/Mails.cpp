#include "devkit/store/Mails.h"

namespace devkit {

void Mails::record(const MailRecord &mail) {
  database_
      .prepare(
          "INSERT INTO mails (item, link, recipients, subject, message, copy_to_sender, file)"
          " VALUES (?, ?, ?, ?, ?, ?, ?)")
      .text(mail.itemId)
      .text(mail.link)
      .text(mail.recipients)
      .text(mail.subject)
      .text(mail.message)
      .number(mail.copyToSender)
      .text(mail.file)
      .run();
}

std::int64_t Mails::count() {
  auto query = database_.prepare("SELECT count(*) FROM mails");
  query.step();
  return query.numberAt(0);
}

}  // namespace devkit
