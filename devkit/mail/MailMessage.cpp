#include "devkit/mail/MailMessage.h"

#include <iterator>
#include <string_view>

#include "devkit/base/Text.h"
#include "devkit/mail/TransferEncoding.h"

namespace devkit {
namespace {

void addHeader(std::string &mail, std::string_view name, std::string_view value) {
  mail.append(name).append(": ").append(value).append("\r\n");
}

/// Not strftime's names of days and months, which depend on the locale.
std::string dateText(std::time_t date) {
  static constexpr const char *kDays[] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
  static constexpr const char *kMonths[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                            "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  std::tm parts = {};
  gmtime_r(&date, &parts);
  char time[40];
  const auto size = std::strftime(time, std::size(time), "%Y %H:%M:%S +0000", &parts);
  return std::string(kDays[parts.tm_wday]) + ", " + std::to_string(parts.tm_mday) + " " +
         kMonths[parts.tm_mon] + " " + std::string(time, size);
}

/// One address a line, so that no line grows too long however many there are.
std::string addressList(const std::vector<std::string> &addresses) {
  std::string list;
  for (const auto &address : addresses) list += (list.empty() ? "" : ",\r\n ") + address;
  return list;
}

/// A name that is not encoded is quoted, since it may contain dots and commas.
std::string namedAddress(const std::string &name, const std::string &address) {
  if (name.empty()) return address;
  auto text = headerText(validUtf8(name));
  if (!text.starts_with("=?")) {
    std::string quoted = "\"";
    for (const char character : text) {
      if (character == '"' || character == '\\') quoted += '\\';
      quoted += character;
    }
    text = quoted + '"';
  }
  return text + " <" + address + ">";
}

}  // namespace

std::string written(const MailMessage &mailMessage) {
  std::string mail;
  addHeader(mail, "Date", dateText(mailMessage.date));
  addHeader(mail, "From", namedAddress(mailMessage.senderName, mailMessage.senderAddress));
  addHeader(mail, "To", addressList(mailMessage.recipients));
  if (mailMessage.copyToSender) addHeader(mail, "Cc", mailMessage.senderAddress);
  addHeader(mail, "Subject", headerText(validUtf8(mailMessage.subject)));
  addHeader(mail, "Message-ID", "<" + mailMessage.token + "@brisvale.test>");
  addHeader(mail, "MIME-Version", "1.0");
  addHeader(mail, "Content-Type", "text/plain; charset=utf-8");
  addHeader(mail, "Content-Transfer-Encoding", "quoted-printable");
  return mail + "\r\n" + quotedPrintable(validUtf8(mailMessage.body));
}

}  // namespace devkit
