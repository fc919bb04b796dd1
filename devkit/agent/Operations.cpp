#include "devkit/agent/Operations.h"

#include <charconv>
#include <cstdio>
#include <exception>

#include "devkit/base/Text.h"
#include "devkit/base/Token.h"
#include "devkit/mail/Recipients.h"

namespace devkit {
namespace {

/// Ends an operation with a sentence for the user.
struct Refused {
  Refusal refusal;
  std::string message;
};

/// Long enough for everything that the application sends, short enough that the outbox stays small.
constexpr std::size_t kLongestMailText = 1024 * 1024;

Argument argument(const Text &text) {
  return text ? Argument(*text) : Argument();
}

/// Enough of a path or an address to be recognised in a sentence.
constexpr std::size_t kLongestQuotation = 200;

std::string inQuotes(std::string_view text) {
  const bool cut = text.size() > kLongestQuotation;
  return "“" + validUtf8(text.substr(0, kLongestQuotation)) + (cut ? "…”" : "”");
}

LinkOptions optionsOf(const RequestedLink &requested) {
  const auto text = requested.maxDownloads.value_or("");
  std::int64_t downloads = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), downloads);
  const bool whole = error == std::errc() && end == text.data() + text.size();
  if (!whole || (downloads < 1 && downloads != LinkOptions::kUnlimited))
    throw Refused{Refusal::BadArgument, inQuotes(text) + " is not a number of downloads."};
  return {requested.notifyOnDownload, requested.requireEmail, downloads};
}

std::string mailText(const Text &text) {
  if (text.value_or("").size() > kLongestMailText)
    throw Refused{Refusal::BadArgument, "The text is too long to be mailed."};
  return text.value_or("");
}

std::string folderOrFile(Kind kind) {
  return kind == Kind::Folder ? "folder" : "file";
}

Record contactRecord(const Contact &contact) {
  return {{"name", contact.displayName()}, {"primaryemail", contact.email}};
}

Record accessRecord(const Access &access) {
  return {{"type", access.type},
          {"useremail", access.email},
          {"userfname", access.firstName},
          {"userlname", access.lastName},
          {"candownload", access.rights.download},
          {"canupload", access.rights.upload},
          {"candelete", access.rights.remove},
          {"isowner", access.owner}};
}

MailMessage mailMessageFrom(const Account &account) {
  return {.senderName = account.firstName + " " + account.lastName,
          .senderAddress = account.email,
          .date = std::time(nullptr),
          .token = unguessableToken()};
}

/// The text of the mail below the sender's message.
std::string linkText(const std::string &link, const LinkOptions &options) {
  std::string text = "\n\n" + link + "\n";
  if (options.requireEmail) text += "You will be asked for your e-mail address.\n";
  if (options.maxDownloads != LinkOptions::kUnlimited)
    text += "Downloads allowed: " + std::to_string(options.maxDownloads) + "\n";
  return text;
}

}  // namespace

Operations::Operations(const std::string &dataFolder, const std::string &syncedFolder)
    : store_(dataFolder, syncedFolder),
      outbox_(dataFolder + "/outbox"),
      log_(dataFolder + "/operations.jsonl") {}

Reply Operations::getLink(Kind kind, const ItemReference &item,
                          const RequestedLink &link) noexcept {
  return answer(kind == Kind::Folder ? "getLinkForFolder" : "getLinkForFile",
                {{"pathOrId", argument(item.pathOrId)},
                 {"notifyOnDownload", link.notifyOnDownload},
                 {"requireEmail", link.requireEmail},
                 {"maxDownloads", argument(link.maxDownloads)},
                 {"isFileId", item.isFileId}},
                [&](Reply &reply) {
                  const auto options = optionsOf(link);
                  reply.value = store_.links.make(resolve(item, kind).id, options);
                });
}

Reply Operations::send(Kind kind, const ItemReference &item, const RequestedLink &link,
                       const RequestedMail &mail) noexcept {
  return answer(kind == Kind::Folder ? "sendFolder" : "sendFile",
                {{"pathOrId", argument(item.pathOrId)},
                 {"notifyOnDownload", link.notifyOnDownload},
                 {"requireEmail", link.requireEmail},
                 {"maxDownloads", argument(link.maxDownloads)},
                 {"recipients", argument(mail.recipients)},
                 {"subject", argument(mail.subject)},
                 {"message", argument(mail.message)},
                 {"isFileId", item.isFileId},
                 {"copyMe", mail.copyMe}},
                [&](Reply &reply) {
                  const auto options = optionsOf(link);
                  const auto found = resolve(item, kind);
                  auto recipients = parseRecipients(mailText(mail.recipients));
                  if (recipients.invalid)
                    throw Refused{Refusal::BadArgument,
                                  inQuotes(*recipients.invalid) + " is not an e-mail address."};
                  auto mailMessage = mailMessageFrom(store_.account());
                  mailMessage.recipients = std::move(recipients.addresses);
                  mailMessage.copyToSender = mail.copyMe;
                  mailMessage.subject = percentDecoded(mailText(mail.subject));
                  const auto message = percentDecoded(mailText(mail.message));

                  const auto address = store_.links.make(found.id, options);
                  mailMessage.body = message + linkText(address, options);
                  mailOut(found, address, mailMessage);
                  reply.value = address;
                });
}

Reply Operations::grantAccess(const ItemReference &item, const RequestedGrant &grant) noexcept {
  return answer("grantAccess",
                {{"userEmail", argument(grant.userEmail)},
                 {"pathOrId", argument(item.pathOrId)},
                 {"canDownload", grant.rights.download},
                 {"canUpload", grant.rights.upload},
                 {"canDelete", grant.rights.remove},
                 {"grantFlag", grant.grantFlag},
                 {"isFileId", item.isFileId},
                 {"isNewInvite", grant.isNewInvite},
                 {"message", argument(grant.message)}},
                [&](Reply &reply) {
                  const auto folder = resolveOwnFolder(item);
                  const auto person = colleague(grant.userEmail);
                  const auto text = mailText(grant.message);

                  auto mailMessage = mailMessageFrom(store_.account());
                  mailMessage.recipients = {person.email};
                  mailMessage.subject = grant.isNewInvite
                                            ? inQuotes(folder.name()) + " is shared with you"
                                            : "Your access to " + inQuotes(folder.name());
                  mailMessage.body = grant.isNewInvite ? percentDecoded(text) : validUtf8(text);
                  store_.sharing.grant(folder.id, {.email = person.email,
                                                   .firstName = person.firstName,
                                                   .lastName = person.lastName,
                                                   .rights = grant.rights});
                  mailOut(folder, "", mailMessage);
                  reply.value = Record{{"userfname", person.firstName},
                                       {"userlname", person.lastName},
                                       {"useremail", person.email}};
                });
}

Reply Operations::revokeAccess(const Text &userEmail, const ItemReference &item) noexcept {
  return answer("revokeAccess",
                {{"userEmail", argument(userEmail)},
                 {"pathOrId", argument(item.pathOrId)},
                 {"isFileId", item.isFileId}},
                [&](Reply &) {
                  const auto folder = resolveOwnFolder(item);
                  const auto email = userEmail.value_or("");
                  if (!store_.sharing.revoke(folder.id, email))
                    throw Refused{Refusal::NotFound, inQuotes(email) + " has no access to " +
                                                         inQuotes(folder.name()) + "."};
                });
}

Reply Operations::getAccess(const ItemReference &item) noexcept {
  return answer("getAccess", {{"pathOrId", argument(item.pathOrId)}, {"isFileId", item.isFileId}},
                [&](Reply &reply) {
                  const auto folder = resolve(item, Kind::Folder);
                  auto entries = store_.sharing.of(folder.id);
                  // A folder that was never shared has one entry all the same: its owner's.
                  if (entries.empty() || !entries.front().owner) {
                    const auto account = store_.account();
                    entries.insert(entries.begin(), {.email = account.email,
                                                     .firstName = account.firstName,
                                                     .lastName = account.lastName,
                                                     .rights = {true, true, true},
                                                     .owner = true});
                  }
                  std::vector<Record> records;
                  for (const auto &entry : entries) records.push_back(accessRecord(entry));
                  reply.value = std::move(records);
                });
}

Reply Operations::getUserInfo(const Text &userEmail, bool userInfoFlag) noexcept {
  return answer(
      "getUserInfo", {{"userEmail", argument(userEmail)}, {"userInfoFlag", userInfoFlag}},
      [&](Reply &reply) {
        const auto email = userEmail.value_or("");
        if (!isAddress(email))
          throw Refused{Refusal::BadArgument, inQuotes(email) + " is not an e-mail address."};
        // An address without an account is a valid result, too.
        const auto person = store_.contacts.find(email);
        auto record = contactRecord(person.value_or(Contact{.email = email}));
        record.emplace_back("accountemployee", person && person->employee);
        reply.value = std::move(record);
      });
}

Reply Operations::getEmployeeAddressBook(AddressBook &book) noexcept {
  return answer("getEmployeeAddressBook", {}, [&](Reply &) {
    const auto revision = store_.contacts.revision();
    if (revision == book.revision) return;
    book.contacts = store_.contacts.addressBook();
    book.revision = revision;
  });
}

Reply Operations::getAddressBook(const Text &query) noexcept {
  return answer("getAddressBook", {{"query", argument(query)}}, [&](Reply &reply) {
    std::vector<Record> records;
    const auto wanted = query.value_or("");
    for (const auto &contact : store_.contacts.addressBook())
      if (contact.displayName().find(wanted) != std::string::npos ||
          contact.email.find(wanted) != std::string::npos)
        records.push_back(contactRecord(contact));
    reply.value = std::move(records);
  });
}

Reply Operations::getActiveAccount() noexcept {
  return answer("getActiveAccount", {}, [&](Reply &reply) {
    const auto account = store_.account();
    reply.value = Record{{"name", account.firstName + " " + account.lastName},
                         {"primaryemail", account.email},
                         {"company", account.company}};
  });
}

Reply Operations::getHomeDirectoryInfo() noexcept {
  return answer("getHomeDirectoryInfo", {}, [&](Reply &reply) {
    const auto home = store_.items.home();
    reply.value = Record{{"homefolder", home.id},
                         {"name", home.name()},
                         {"path", store_.folder().root() + "/" + home.relativePath}};
  });
}

Reply Operations::answer(std::string_view operation, const Arguments &arguments,
                         const Body &body) noexcept {
  Reply reply;
  const auto refuse = [&reply](Refusal refusal, std::string message) {
    reply = {.error = static_cast<int>(refusal), .errorMessage = std::move(message), .value = {}};
  };
  try {
    body(reply);
  } catch (const Refused &refused) {
    refuse(refused.refusal, refused.message);
  } catch (const std::exception &failure) {
    std::fprintf(stderr, "VeldaneKRVAgent: %s\n", failure.what());
    refuse(Refusal::ServiceFailed, "The service cannot do this at the moment.");
  }
  log_.add(operation, arguments, reply);
  return reply;
}

Item Operations::resolve(const ItemReference &reference) {
  const auto &text = reference.pathOrId;
  if (!text || text->empty()) throw Refused{Refusal::BadArgument, "No item was named."};
  const auto found = reference.isFileId ? store_.items.byId(*text) : store_.items.byPath(*text);
  if (found) return *found;
  throw Refused{Refusal::NotFound, reference.isFileId
                                       ? "The item is not, or no longer, in your Brisvale folder."
                                       : inQuotes(*text) + " is not in your Brisvale folder."};
}

Item Operations::resolve(const ItemReference &reference, Kind kind) {
  auto found = resolve(reference);
  if (found.kind != kind)
    throw Refused{Refusal::BadArgument, inQuotes(found.name()) + " is a " +
                                            folderOrFile(found.kind) + ", not a " +
                                            folderOrFile(kind) + "."};
  return found;
}

Item Operations::resolveOwnFolder(const ItemReference &reference) {
  auto folder = resolve(reference, Kind::Folder);
  if (store_.sharing.belongsToSomebodyElse(folder.id, store_.account().email))
    throw Refused{Refusal::NotAllowed, "Only its owner can share " + inQuotes(folder.name()) + "."};
  return folder;
}

Contact Operations::colleague(const Text &email) {
  const auto address = email.value_or("");
  if (!isAddress(address))
    throw Refused{Refusal::BadArgument, inQuotes(address) + " is not an e-mail address."};
  if (address == store_.account().email)
    throw Refused{Refusal::NotAllowed, "The folder is your own."};
  const auto person = store_.contacts.find(address);
  if (!person || !person->employee)
    throw Refused{Refusal::NotFound, inQuotes(address) + " is not a colleague of yours."};
  return *person;
}

void Operations::mailOut(const Item &item, const std::string &link,
                         const MailMessage &mailMessage) {
  MailRecord record = {.itemId = item.id,
                       .link = link,
                       .recipients = {},
                       .subject = mailMessage.subject,
                       .message = mailMessage.body,
                       .copyToSender = mailMessage.copyToSender,
                       .file = {}};
  for (const auto &address : mailMessage.recipients)
    record.recipients += (record.recipients.empty() ? "" : ",") + address;
  record.file = outbox_.put(mailMessage);
  store_.mails.record(record);
}

}  // namespace devkit
