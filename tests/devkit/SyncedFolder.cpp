#include "devkit/base/SyncedFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "devkit/base/Paths.h"
#include "tests/devkit/Kit.h"

using devkit::Kind;
using devkit::SyncedFolder;

namespace {

std::string relative(const std::string &path) {
  return SyncedFolder("/Users/ann/Brisvale").relative(path).value_or("(outside)");
}

class OnDisk : public testing::Test {
 protected:
  std::string look(const std::string &relativePath) const {
    const auto found = SyncedFolder(kit_.syncedFolder()).look(relativePath);
    if (!found) return "nothing";
    return found->kind == Kind::Folder ? "folder" : "file";
  }

  Kit kit_;
};

}  // namespace

TEST(Places, TheSyncedFolderIsBelowUsersWhateverTheHomeFolderIs) {
  unsetenv("BV_SYNCED_FOLDER");
  setenv("HOME", "/somewhere/else", 1);
  EXPECT_EQ(devkit::syncedFolderPath(), "/Users/" + devkit::loginName() + "/Brisvale");
}

TEST(Places, TheDataFolderFollowsTheUsersDataFolder) {
  unsetenv("BV_DEVKIT_DATA");
  setenv("XDG_DATA_HOME", "/data/", 1);
  EXPECT_EQ(devkit::dataFolderPath(), "/data/veldane-devkit");
  setenv("XDG_DATA_HOME", "not/absolute", 1);
  setenv("HOME", "/home/ann", 1);
  EXPECT_EQ(devkit::dataFolderPath(), "/home/ann/.local/share/veldane-devkit");
}

TEST(Places, TheEnvironmentReplacesBothFolders) {
  setenv("BV_SYNCED_FOLDER", "/tree/", 1);
  setenv("BV_DEVKIT_DATA", "/state", 1);
  EXPECT_EQ(devkit::syncedFolderPath(), "/tree");
  EXPECT_EQ(devkit::dataFolderPath(), "/state");
}

TEST(SyncedFolder, PathsInsideAreTakenWithoutTheirDetours) {
  EXPECT_EQ(relative("/Users/ann/Brisvale/MyDocs"), "MyDocs");
  EXPECT_EQ(relative("/Users/ann/Brisvale/MyDocs/a b.txt"), "MyDocs/a b.txt");
  EXPECT_EQ(relative("/Users/ann/Brisvale//MyDocs/./a/"), "MyDocs/a");
}

TEST(SyncedFolder, EverythingElseIsOutside) {
  EXPECT_EQ(relative(""), "(outside)");
  EXPECT_EQ(relative("/Users/ann/Brisvale"), "(outside)");
  EXPECT_EQ(relative("/Users/ann/Brisvale/"), "(outside)");
  EXPECT_EQ(relative("/Users/ann/BrisvaleOld/a"), "(outside)");
  EXPECT_EQ(relative("/Users/ann/brisvale/a"), "(outside)");
  EXPECT_EQ(relative("/Users/ann/Brisvale/../../../etc/passwd"), "(outside)");
  EXPECT_EQ(relative(std::string("/Users/ann/Brisvale/a\0b", 23)), "(outside)");
}

TEST_F(OnDisk, FilesAndFoldersAreFound) {
  kit_.makeFile("MyDocs/plan.txt");
  EXPECT_EQ(look("MyDocs/plan.txt"), "file");
  EXPECT_EQ(look("MyDocs"), "folder");
  EXPECT_EQ(look("MyDocs/other"), "nothing");
  EXPECT_EQ(look("MyDocs/plan.txt/below"), "nothing");
}

TEST_F(OnDisk, APathLongerThanTheSystemTakesIsFound) {
  std::string name;
  for (int character = 0; character < 80; ++character) name += "字";
  std::string path = name;
  while (path.size() < 3 * 4096) path += "/" + name;
  kit_.makeFile(path);
  EXPECT_EQ(look(path), "file");
  EXPECT_EQ(look(path + "x"), "nothing");
}

TEST_F(OnDisk, ALinkIsAnItemButWhatLiesBehindItIsNot) {
  kit_.makeFile("real/file");
  std::filesystem::create_directory_symlink(kit_.path("real"), kit_.path("link"));
  std::filesystem::create_symlink("nowhere", kit_.path("dangling"));
  EXPECT_EQ(look("link"), "folder");
  EXPECT_EQ(look("link/file"), "nothing");
  EXPECT_EQ(look("dangling"), "file");
}

TEST_F(OnDisk, NothingIsFoundWithoutTheSyncedFolder) {
  kit_.makeFile("a");
  std::filesystem::remove_all(kit_.syncedFolder());
  EXPECT_EQ(look("a"), "nothing");
}
