#include "devkit/store/Sharing.h"

#include <gtest/gtest.h>

#include "devkit/store/Store.h"
#include "tests/devkit/Kit.h"

using devkit::Rights;

namespace {

constexpr Rights kReadOnly = {.download = true};
constexpr Rights kReadWrite = {.download = true, .upload = true, .remove = true};

class Sharing : public testing::Test {
 protected:
  std::vector<devkit::Access> entries() { return store_.sharing.of("folder"); }

  Kit kit_;
  devkit::Store store_{kit_.dataFolder(), kit_.syncedFolder()};
};

}  // namespace

TEST_F(Sharing, AGrantIsListedWithItsRights) {
  store_.sharing.grant("folder", {.email = "a@b", .firstName = "A", .rights = kReadOnly});
  ASSERT_EQ(entries().size(), 1u);
  EXPECT_EQ(entries()[0].email, "a@b");
  EXPECT_EQ(entries()[0].rights, kReadOnly);
}

TEST_F(Sharing, ASecondGrantToTheSameAddressChangesTheFirst) {
  store_.sharing.grant("folder", {.email = "a@b", .rights = kReadOnly});
  store_.sharing.grant("folder", {.email = "A@B", .rights = kReadWrite});
  ASSERT_EQ(entries().size(), 1u);
  EXPECT_EQ(entries()[0].rights, kReadWrite);
}

TEST_F(Sharing, TheOwnerStandsFirstAndStays) {
  store_.sharing.grant("folder", {.email = "a@b", .rights = kReadOnly});
  store_.sharing.grant("folder", {.email = "o@b", .rights = kReadWrite, .owner = true});
  EXPECT_EQ(entries()[0].email, "o@b");
  EXPECT_FALSE(store_.sharing.revoke("folder", "o@b"));
  EXPECT_EQ(entries().size(), 2u);
}

TEST_F(Sharing, ARevokedAddressIsNoLongerListed) {
  store_.sharing.grant("folder", {.email = "a@b", .rights = kReadOnly});
  EXPECT_TRUE(store_.sharing.revoke("folder", "A@B"));
  EXPECT_TRUE(entries().empty());
  EXPECT_FALSE(store_.sharing.revoke("folder", "a@b"));
}

TEST_F(Sharing, ALinkKeepsItsOptions) {
  const auto link = store_.links.make("item", {.notifyOnDownload = true, .maxDownloads = 5});
  EXPECT_EQ(link.size(), std::string("https://brisvale.test/s/").size() + 32);
  EXPECT_TRUE(store_.links.options(link)->notifyOnDownload);
  EXPECT_FALSE(store_.links.options(link)->requireEmail);
  EXPECT_EQ(store_.links.options(link)->maxDownloads, 5);
  EXPECT_NE(store_.links.make("item", {}), link);
  EXPECT_FALSE(store_.links.options("https://brisvale.test/s/other"));
}
