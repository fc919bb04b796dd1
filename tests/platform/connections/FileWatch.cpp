#include "platform/gnustep/connections/FileWatch.h"

#include <gtest/gtest.h>
#include <poll.h>

#include <filesystem>
#include <fstream>

#include "tests/support/ChildProcess.h"

namespace fs = std::filesystem;

namespace {

struct FileWatch : testing::Test {
  const fs::path folder = newTemporaryFolder();
  const fs::path file = folder / "file";
  platform::FileWatch watch;

  FileWatch() {
    std::ofstream(file) << "before";
    watch.add(file);
    watch.addFoldersAbove(file);
  }

  bool hasReported() const {
    struct pollfd reports = {watch.descriptor(), POLLIN, 0};
    return poll(&reports, 1, 0) == 1;
  }
};

}  // namespace

TEST_F(FileWatch, ReportsNothingWhileNothingChanges) {
  EXPECT_FALSE(hasReported());
}

TEST_F(FileWatch, ReportsThatTheFileIsRemoved) {
  fs::remove(file);
  EXPECT_TRUE(hasReported());
}

TEST_F(FileWatch, ReportsThatAFolderAboveIsMoved) {
  fs::rename(folder, folder.string() + "-moved");
  EXPECT_TRUE(hasReported());
}

TEST_F(FileWatch, ReportsNothingOfEntriesThatComeAndGoInAFolder) {
  std::ofstream(folder / "other") << "text";
  fs::remove(folder / "other");
  EXPECT_FALSE(hasReported());
}

TEST_F(FileWatch, ForgetsWhatHasChangedWhenItIsCleared) {
  fs::remove(file);
  watch.clear();
  EXPECT_FALSE(hasReported());
}

TEST_F(FileWatch, WatchesNothingWhenItIsCleared) {
  watch.clear();
  fs::remove(file);
  EXPECT_FALSE(hasReported());
}

TEST_F(FileWatch, ReportsThroughTheSameDescriptorWhatIsAddedAfterItWasCleared) {
  const int descriptor = watch.descriptor();
  fs::remove(file);
  watch.clear();
  std::ofstream(file) << "again";
  watch.add(file);
  EXPECT_FALSE(hasReported());
  fs::remove(file);
  EXPECT_TRUE(hasReported());
  EXPECT_EQ(watch.descriptor(), descriptor);
}
