#include "devkit/engine/Engine.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

#include "app/BVSyncEngine.h"
#include "tests/devkit/Kit.h"
#include "tests/support/ChildProcess.h"

using devkit::EngineCode;

namespace {

int code(EngineCode value) {
  return static_cast<int>(value);
}

/// Through the C functions, as the application uses them.
class Engine : public testing::Test {
 protected:
  static std::string fileId(const std::string &path) {
    char *id = nullptr;
    BvInitialize();
    const int result = BvGetFileIdByName(path.c_str(), &id);
    BvUninitialize();
    return result == 0 ? id : "failed: " + std::to_string(result);
  }

  Kit kit_;
};

}  // namespace

TEST_F(Engine, AFileHasTheSameIdAtEveryQuestion) {
  const auto path = kit_.makeFile("MyDocs/plan.txt");
  EXPECT_EQ(fileId(path).size(), 32u);
  EXPECT_EQ(fileId(path), fileId(path));
}

TEST_F(Engine, AnIdStaysReadableAfterTheQueriesHaveEnded) {
  char *first = nullptr;
  const auto path = kit_.makeFile("one");
  BvInitialize();
  ASSERT_EQ(BvGetFileIdByName(path.c_str(), &first), 0);
  const std::string copy = first;
  BvUninitialize();
  for (int file = 0; file < 100; ++file) fileId(kit_.makeFile("other" + std::to_string(file)));
  EXPECT_EQ(first, copy);
}

TEST_F(Engine, NothingIsAnsweredOutsideTheQueries) {
  const auto path = kit_.makeFile("one");
  char *id = nullptr;
  int state = -1;
  EXPECT_EQ(BvGetFileIdByName(path.c_str(), &id), code(EngineCode::NotInitialized));
  EXPECT_EQ(BvGetFolderIdByName(path.c_str(), &id), code(EngineCode::NotInitialized));
  EXPECT_EQ(BvGetFileSyncState(path.c_str(), &state), code(EngineCode::NotInitialized));
  EXPECT_EQ(BvUninitialize(), code(EngineCode::NotInitialized));
  EXPECT_EQ(id, nullptr);
  EXPECT_EQ(state, -1);
}

TEST_F(Engine, FailuresAreToldApartAndLeaveTheResultAlone) {
  const auto file = kit_.makeFile("file");
  const auto folder = kit_.makeFolder("folder");
  char untouched[] = "untouched";
  char *id = untouched;
  BvInitialize();
  EXPECT_EQ(BvGetFileIdByName(folder.c_str(), &id), code(EngineCode::NotAFile));
  EXPECT_EQ(BvGetFolderIdByName(file.c_str(), &id), code(EngineCode::NotAFolder));
  EXPECT_EQ(BvGetFileIdByName("/etc/passwd", &id), code(EngineCode::UnknownPath));
  EXPECT_EQ(BvGetFileIdByName((file + "x").c_str(), &id), code(EngineCode::UnknownPath));
  EXPECT_EQ(BvGetFileIdByName(nullptr, &id), code(EngineCode::BadArgument));
  EXPECT_EQ(BvGetFileIdByName(file.c_str(), nullptr), code(EngineCode::BadArgument));
  BvUninitialize();
  EXPECT_STREQ(id, "untouched");
}

TEST_F(Engine, AStoreThatCannotBeOpenedIsACode) {
  const auto file = kit_.makeFile("file");
  setenv("BV_DEVKIT_DATA", (file + "/data").c_str(), 1);
  EXPECT_EQ(BvInitialize(), code(EngineCode::StoreUnavailable));
  EXPECT_EQ(fileId(file), "failed: " + std::to_string(code(EngineCode::NotInitialized)));
}

TEST_F(Engine, AFreshItemIsStillOnItsWayAndAnOldOneIsThere) {
  namespace fs = std::filesystem;
  const auto path = kit_.makeFile("file");
  int state = 0;
  BvInitialize();
  ASSERT_EQ(BvGetFileSyncState(path.c_str(), &state), 0);
  EXPECT_EQ(state, static_cast<int>(devkit::SyncState::Uploading));
  fs::last_write_time(path, fs::last_write_time(path) - std::chrono::hours(1));
  ASSERT_EQ(BvGetFileSyncState(path.c_str(), &state), 0);
  EXPECT_EQ(state, static_cast<int>(devkit::SyncState::Synced));
  BvUninitialize();
}

TEST_F(Engine, ManyProcessesThatMeetANewStoreAgreeOnEveryId) {
  std::vector<std::string> command = {ASK_ENGINE};
  for (int file = 0; file < 25; ++file)
    command.push_back(kit_.makeFile("file " + std::to_string(file)));

  std::vector<std::unique_ptr<ChildProcess>> processes;
  for (int index = 0; index < 8; ++index)
    processes.push_back(std::make_unique<ChildProcess>(command));
  for (const auto &process : processes) EXPECT_EQ(process->waitForEnd(), 0) << process->output();
  for (const auto &process : processes) {
    EXPECT_EQ(process->output(), processes[0]->output());
    EXPECT_EQ(process->output().size(), 25u * 33);
  }
}
