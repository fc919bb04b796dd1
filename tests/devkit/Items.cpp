#include "devkit/store/Items.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "devkit/base/Paths.h"
#include "devkit/store/Store.h"
#include "tests/devkit/Kit.h"

using devkit::Kind;

namespace {

class Items : public testing::Test {
 protected:
  /// The id of an item, empty when it is unknown.
  std::string id(const std::string &path) {
    const auto item = store_.items.byPath(path);
    return item ? item->id : "";
  }

  Kit kit_;
  devkit::Store store_{kit_.dataFolder(), kit_.syncedFolder()};
};

struct OddName {
  const char *what;
  const char *name;
};

void PrintTo(const OddName &name, std::ostream *out) {
  *out << name.what;
}

class OddNames : public Items, public testing::WithParamInterface<OddName> {};

}  // namespace

TEST_F(Items, AnItemGetsItsIdAtTheFirstQuestionAndKeepsIt) {
  const auto path = kit_.makeFile("MyDocs/plan.txt");
  const auto first = id(path);
  EXPECT_EQ(first.size(), 32u);
  EXPECT_EQ(id(path), first);
  devkit::Store another(kit_.dataFolder(), kit_.syncedFolder());
  EXPECT_EQ(another.items.byPath(path)->id, first);
}

TEST_F(Items, NoIdCanBeToldFromThePath) {
  const auto path = kit_.makeFile("plan.txt");
  devkit::Store elsewhere(kit_.dataFolder() + "-2", kit_.syncedFolder());
  EXPECT_NE(elsewhere.items.byPath(path)->id, id(path));
  EXPECT_NE(id(kit_.makeFile("other.txt")), id(path));
}

TEST_F(Items, AnItemKnowsItsKindAndName) {
  kit_.makeFile("MyDocs/plan.txt");
  EXPECT_EQ(store_.items.byPath(kit_.path("MyDocs/plan.txt"))->kind, Kind::File);
  EXPECT_EQ(store_.items.byPath(kit_.path("MyDocs/plan.txt"))->name(), "plan.txt");
  EXPECT_EQ(store_.items.byPath(kit_.path("MyDocs"))->kind, Kind::Folder);
  EXPECT_EQ(store_.items.byPath(kit_.path("MyDocs"))->name(), "MyDocs");
}

TEST_F(Items, WhatIsNotThereIsUnknown) {
  EXPECT_EQ(id(kit_.path("nothing")), "");
  EXPECT_EQ(id("/etc/passwd"), "");
  EXPECT_EQ(id(kit_.syncedFolder()), "");
  EXPECT_EQ(id(kit_.makeFile("file") + "/"), "");
}

TEST_F(Items, AFolderMayEndInASlash) {
  const auto path = kit_.makeFolder("folder");
  EXPECT_EQ(id(path + "/"), id(path));
}

TEST_F(Items, AnItemIsFoundByItsIdWhileItIsThere) {
  const auto path = kit_.makeFile("plan.txt");
  const auto known = id(path);
  EXPECT_EQ(store_.items.byId(known)->relativePath, "plan.txt");
  EXPECT_FALSE(store_.items.byId("no such id"));
  std::filesystem::remove(path);
  EXPECT_FALSE(store_.items.byId(known));
}

TEST_F(Items, AFileThatBecomesAFolderIsAnotherItem) {
  const auto path = kit_.makeFile("thing");
  const auto file = id(path);
  std::filesystem::remove(path);
  kit_.makeFolder("thing");
  EXPECT_FALSE(store_.items.byId(file));
  EXPECT_NE(id(path), file);
  EXPECT_FALSE(store_.items.byId(file));
}

TEST_F(Items, TheHomeFolderHasOneIdWhetherItIsOnDiskOrNot) {
  const auto home = store_.items.home().id;
  EXPECT_TRUE(store_.items.byId(home));
  EXPECT_EQ(id(kit_.makeFolder("MyDocs")), home);
}

TEST_F(Items, TheDataFolderIsTheUsersOwn) {
  struct stat found = {};
  ASSERT_EQ(stat(kit_.dataFolder().c_str(), &found), 0);
  EXPECT_EQ(found.st_mode & 0777, 0700u);
}

TEST_F(Items, AStoreOfALaterVersionIsLeftAlone) {
  devkit::Database(kit_.dataFolder() + "/store.sqlite").execute("PRAGMA user_version = 99");
  EXPECT_THROW(devkit::Store(kit_.dataFolder(), kit_.syncedFolder()), devkit::StoreError);
}

TEST_F(Items, AStoreThatCannotBeMadeSaysSo) {
  const auto file = kit_.makeFile("file");
  EXPECT_THROW(devkit::Store(file + "/data", kit_.syncedFolder()), devkit::StoreError);
}

TEST_P(OddNames, AreItemsLikeAnyOther) {
  const auto path = kit_.makeFile(std::string("folder/") + GetParam().name);
  const auto known = id(path);
  ASSERT_EQ(known.size(), 32u);
  EXPECT_EQ(id(path), known);
  EXPECT_EQ(store_.items.byId(known)->name(), GetParam().name);
}

INSTANTIATE_TEST_SUITE_P(
    All, OddNames,
    testing::Values(OddName{"Blank", "a blank"}, OddName{"LineFeed", "two\nlines"},
                    OddName{"Quotes", "'quoted\""}, OddName{"Japanese", "写真"},
                    OddName{"Accents", "Ünïcode"}, OddName{"Arabic", "حداد"},
                    OddName{"NoUtf8", "not \xFF\xC3 UTF-8"}, OddName{"Statement", "%41;--"},
                    OddName{"Emoji", "🗂️"}),
    [](const auto &info) { return info.param.what; });
