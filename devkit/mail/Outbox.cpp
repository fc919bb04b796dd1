#include "devkit/mail/Outbox.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

namespace devkit {
namespace {

/// Sorts by time and stays unique by the token.
std::string fileName(const MailMessage &mailMessage) {
  std::tm parts = {};
  gmtime_r(&mailMessage.date, &parts);
  char time[32];
  const auto size = std::strftime(time, std::size(time), "%Y%m%dT%H%M%SZ-", &parts);
  return std::string(time, size) + mailMessage.token.substr(0, 8) + ".eml";
}

}  // namespace

std::string Outbox::put(const MailMessage &mailMessage) {
  namespace fs = std::filesystem;
  fs::create_directories(folder_);
  auto path = folder_ + "/" + fileName(mailMessage);
  const auto unfinished = path + ".part";
  std::ofstream file(unfinished, std::ios::binary);
  file << written(mailMessage);
  file.close();
  if (!file) throw std::system_error(errno, std::generic_category(), unfinished);
  fs::rename(unfinished, path);
  return path;
}

}  // namespace devkit
