// Every input that is kept for the fuzzers, as a test: what they found once stays found.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <ostream>
#include <string>
#include <vector>

#include "tests/fuzz/Target.h"

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

#define FUZZ_TARGET_NAMED(name) \
  Target {                      \
#name, fuzz::name           \
  }
INSTANTIATE_TEST_SUITE_P(Of, FuzzCorpus,
                         testing::Values(FUZZ_TARGET_NAMED(Brackets), FUZZ_TARGET_NAMED(Completion),
                                         FUZZ_TARGET_NAMED(Entries), FUZZ_TARGET_NAMED(MailText),
                                         FUZZ_TARGET_NAMED(Pieces), FUZZ_TARGET_NAMED(Recipients),
                                         FUZZ_TARGET_NAMED(Records), FUZZ_TARGET_NAMED(Replies),
                                         FUZZ_TARGET_NAMED(TextFormats),
                                         FUZZ_TARGET_NAMED(WindowTitles)),
                         [](const auto &info) { return info.param.name; });
