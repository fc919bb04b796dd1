#include "devkit/store/Contacts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "devkit/store/Store.h"
#include "tests/devkit/Kit.h"

using devkit::Contact;

namespace {

class Contacts : public testing::Test {
 protected:
  Kit kit_;
  devkit::Store store_{kit_.dataFolder(), kit_.syncedFolder()};
};

}  // namespace

TEST(Contact, TheNameIsWrittenEitherWay) {
  EXPECT_EQ((Contact{.email = "", .firstName = "Jo", .lastName = "Doe"}).displayName(), "Jo Doe");
  EXPECT_EQ(
      (Contact{.email = "", .firstName = "Jo", .lastName = "Doe", .lastFirst = true}).displayName(),
      "Doe, Jo");
  EXPECT_EQ((Contact{.email = "", .firstName = "Reception", .lastName = ""}).displayName(),
            "Reception");
}

TEST_F(Contacts, TheSampleBookMixesBothWaysOfWritingNames) {
  const auto book = store_.contacts.addressBook();
  const auto lastFirst = std::ranges::count_if(book, &Contact::lastFirst);
  EXPECT_GT(book.size(), 50u);
  EXPECT_GT(lastFirst, 10);
  EXPECT_GT(static_cast<long>(book.size()) - lastFirst, 10);
}

TEST_F(Contacts, OutsidersAndNewcomersAreKnownButNotInTheBook) {
  EXPECT_FALSE(store_.contacts.find("robin.ellis@lakeside-print.test")->employee);
  EXPECT_TRUE(store_.contacts.find("nadia.rahman@brisvale.test")->employee);
  for (const auto &contact : store_.contacts.addressBook()) {
    EXPECT_NE(contact.email, "robin.ellis@lakeside-print.test");
    EXPECT_NE(contact.email, "nadia.rahman@brisvale.test");
  }
}

TEST_F(Contacts, AnAddressIsFoundInAnyLetterCase) {
  EXPECT_EQ(store_.contacts.find("Kenji.TANAKA@brisvale.TEST")->firstName, "健司");
  EXPECT_FALSE(store_.contacts.find("nobody@brisvale.test"));
}

TEST_F(Contacts, GeneratedPeopleReplaceTheBookAndHaveAddressesOfTheirOwn) {
  store_.contacts.fillWith(2'000);
  std::set<std::string> addresses;
  for (const auto &contact : store_.contacts.addressBook()) addresses.insert(contact.email);
  EXPECT_EQ(addresses.size(), 2'000u);
  EXPECT_EQ(addresses.count("kenji.tanaka@brisvale.test"), 0u);
}

TEST_F(Contacts, TheBookCanBeEmptied) {
  store_.contacts.fillWith(0);
  EXPECT_TRUE(store_.contacts.addressBook().empty());
}

TEST_F(Contacts, TheRevisionChangesWithContactsAndWithNothingElse) {
  const auto before = store_.contacts.revision();
  store_.items.byPath(kit_.makeFile("file"));
  EXPECT_EQ(store_.contacts.revision(), before);
  devkit::Store another(kit_.dataFolder(), kit_.syncedFolder());
  another.contacts.add({.email = "new@brisvale.test", .firstName = "N", .lastName = "W"});
  EXPECT_NE(store_.contacts.revision(), before);
}
