// Every kept input of the fuzzers as a test, so that no fault that they found comes back.
#include <gtest/gtest.h>
#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <ostream>
#include <string>
#include <vector>

#include "tests/fuzz/Target.h"
#include "tests/support/PrivateSession.h"
#include "tests/support/ProgramEnd.h"

namespace {

struct Target {
  const char *name;
  void (*run)(std::string_view);
};

void PrintTo(const Target &target, std::ostream *out) {
  *out << target.name;
}

std::vector<std::filesystem::path> inputsOf(const Target &target) {
  std::vector<std::filesystem::path> files;
  for (const auto &file :
       std::filesystem::directory_iterator(std::filesystem::path(FUZZ_CORPUS) / target.name)) {
    files.push_back(file.path());
  }
  std::sort(files.begin(), files.end());
  return files;
}

std::string contentOf(const std::filesystem::path &path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> contentsOf(const Target &target) {
  std::vector<std::string> contents;
  for (const auto &file : inputsOf(target)) contents.push_back(contentOf(file));
  return contents;
}

void runOverAll(const Target &target, const std::vector<std::string> &contents, int times) {
  for (int i = 0; i < times; ++i) {
    for (const std::string &content : contents) fuzz::run(target.run, content);
  }
}

struct FuzzCorpus : testing::TestWithParam<Target> {};

}  // namespace

void fuzz::broken(const char *promise) {
  ADD_FAILURE() << "broken promise: " << promise;
}

TEST_P(FuzzCorpus, KeepsAllPromises) {
  const auto files = inputsOf(GetParam());
  EXPECT_GE(files.size(), 3U);
  for (const auto &file : files) {
    SCOPED_TRACE(file);
    fuzz::run(GetParam().run, contentOf(file));
  }
}

/// Always passes under a sanitizer, whose allocator has no such statistics.
TEST_P(FuzzCorpus, LeavesNothingBehind) {
  constexpr int kWarmUp = 3;
  constexpr int kTimes = 20;
  constexpr std::size_t kLeastLeak = 16 * kTimes;
  const auto contents = contentsOf(GetParam());
  runOverAll(GetParam(), contents, kWarmUp);
  const std::size_t before = mallinfo2().uordblks;
  runOverAll(GetParam(), contents, kTimes);
  EXPECT_LT(mallinfo2().uordblks, before + kLeastLeak);
}

#define FUZZ_TARGET_NAMED(name) \
  Target {                      \
#name, fuzz::name           \
  }
INSTANTIATE_TEST_SUITE_P(Of, FuzzCorpus,
                         testing::Values(FUZZ_TARGET_NAMED(Brackets), FUZZ_TARGET_NAMED(Completion),
                                         FUZZ_TARGET_NAMED(DesktopSettings),
                                         FUZZ_TARGET_NAMED(Entries), FUZZ_TARGET_NAMED(MailText),
                                         FUZZ_TARGET_NAMED(SplitString),
                                         FUZZ_TARGET_NAMED(Recipients), FUZZ_TARGET_NAMED(Records),
                                         FUZZ_TARGET_NAMED(Replies), FUZZ_TARGET_NAMED(Scripts),
                                         FUZZ_TARGET_NAMED(TextFormats),
                                         FUZZ_TARGET_NAMED(WindowTitles)),
                         [](const auto &info) { return info.param.name; });

namespace {

/// For exact statistics: memory in the allocator's caches counts as used. The variable is read at
/// start, so the program restarts itself.
void useExactStatistics(char *argv[]) {
  const char *const kTunables = "GLIBC_TUNABLES";
  const std::string wanted = "glibc.malloc.tcache_count=0:glibc.malloc.mxfast=0";
  const char *const tunables = std::getenv(kTunables);
  if (tunables != nullptr && tunables == wanted) return;
  setenv(kTunables, wanted.c_str(), 1);
  execv("/proc/self/exe", argv);
  std::perror("/proc/self/exe");
  std::exit(1);
}

}  // namespace

int main(int argc, char *argv[]) {
  useExactStatistics(argv);
  enterPrivateSession(argc, argv, Screen::None);
  testing::InitGoogleTest(&argc, argv);
  int result = 0;
  @autoreleasepool {
    result = RUN_ALL_TESTS();
  }
  endProgram(result);
}
