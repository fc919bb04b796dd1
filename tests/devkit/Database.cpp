#include "devkit/store/Database.h"

#include <gtest/gtest.h>

#include <chrono>
#include <future>

#include "tests/support/ChildProcess.h"

TEST(Database, ANewOneThatAnotherProcessIsStillMakingIsWaitedFor) {
  const std::string path = newTemporaryFolder() + "/store.sqlite";
  devkit::Database maker(path);
  // As a file is before its first user has said how it is to be kept.
  maker.execute("PRAGMA journal_mode = DELETE");
  maker.execute("BEGIN IMMEDIATE");
  auto other = std::async(std::launch::async, [&] { devkit::Database{path}; });
  EXPECT_EQ(other.wait_for(std::chrono::milliseconds(100)), std::future_status::timeout);
  maker.execute("COMMIT");
  EXPECT_NO_THROW(other.get());
}
