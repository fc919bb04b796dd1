#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "devkit/agent/OperationLog.h"
#include "devkit/agent/Reply.h"
#include "devkit/mail/Outbox.h"
#include "devkit/store/Store.h"

namespace devkit {

/// A text argument; nothing when it was nil or no text.
using Text = std::optional<std::string>;

/// The item that an operation is about: a server id or a full local path.
struct ItemReference {
  Text pathOrId;
  bool isFileId = false;
};

/// The options of a link as they arrive, downloads as decimal text.
struct RequestedLink {
  bool notifyOnDownload = false;
  bool requireEmail = false;
  Text maxDownloads;
};

/// Recipients as entered; subject and message percent-escaped.
struct RequestedMail {
  Text recipients;
  Text subject;
  Text message;
  bool copyMe = false;
};

struct RequestedGrant {
  Text userEmail;
  Rights rights;
  bool grantFlag = false;
  bool isNewInvite = false;
  /// Percent-escaped in an invitation, plain text in a change of rights.
  Text message;
};

/// The address book together with the revision by which it is known.
struct AddressBook {
  std::int64_t revision = -1;
  std::vector<Contact> contacts;
};

/// What the service does for each operation of the agent's interface: checks the arguments, changes
/// the store, writes mails and adds a line to the log. No function throws, whatever the arguments:
/// a failure is a reply with an error and a sentence for the user.
class Operations {
 public:
  /// Store, outbox and log lie in dataFolder. Throws when the store cannot be opened.
  Operations(const std::string &dataFolder, const std::string &syncedFolder);

  /// Fills the address book with generated people. Throws when the store cannot be written.
  void fillAddressBook(std::int64_t count) { store_.contacts.fillWith(count); }

  Reply getLink(Kind kind, const ItemReference &item, const RequestedLink &link) noexcept;
  Reply send(Kind kind, const ItemReference &item, const RequestedLink &link,
             const RequestedMail &mail) noexcept;
  Reply grantAccess(const ItemReference &item, const RequestedGrant &grant) noexcept;
  Reply revokeAccess(const Text &userEmail, const ItemReference &item) noexcept;
  Reply getAccess(const ItemReference &item) noexcept;
  Reply getUserInfo(const Text &userEmail, bool userInfoFlag) noexcept;

  /// Updates book; leaves it unchanged when it is up to date already. The reply has no value.
  Reply getEmployeeAddressBook(AddressBook &book) noexcept;
  /// The entries of the address book whose name or address contains the query; all without a query.
  Reply getAddressBook(const Text &query) noexcept;

  /// The value is the bare dictionary, on failure there is none.
  Reply getActiveAccount() noexcept;
  Reply getHomeDirectoryInfo() noexcept;

 private:
  using Body = std::function<void(Reply &)>;
  Reply answer(std::string_view operation, const Arguments &arguments, const Body &body) noexcept;

  Item resolve(const ItemReference &reference);
  Item resolve(const ItemReference &reference, Kind kind);
  Item resolveOwnFolder(const ItemReference &reference);
  Contact colleague(const Text &email);
  void mailOut(const Item &item, const std::string &link, const MailMessage &mailMessage);

  Store store_;
  Outbox outbox_;
  OperationLog log_;
};

}  // namespace devkit
