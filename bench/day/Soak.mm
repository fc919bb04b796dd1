// soak [--short]
//
// An hour of a heavy user's day in some minutes, against the whole application. After every tenth
// of it prints what the application holds and does at rest; ends with 1 when something has grown by
// more than its bound since the warm-up, or when the application does anything at rest, with 0
// otherwise. When an expected result does not appear in time, says what and ends by a signal.
//
// --short: three short rounds, to test the soak itself.
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include <unistd.h>

#import "bench/day/Day.h"
#include "bench/day/Usage.h"
#include "tests/support/PrivateSession.h"

namespace {

constexpr int kNameWidth = 8;
constexpr int kColumnWidth = 15;

/// How long a soak is.
struct Length {
  Pace warmUp;
  int warmUpRounds;
  Pace pace;
  int rounds;
};

constexpr Pace kTenth = {.copies = 30,
                         .quickCopies = 300,
                         .mails = 1,
                         .copiesFromTab = 1,
                         .invitations = 1,
                         .looks = 4,
                         .mistakes = 1,
                         .unfinished = 2,
                         .agentRestarts = 1};
constexpr Pace kShortRound = {.copies = 3,
                              .quickCopies = 300,
                              .copiesFromTab = 1,
                              .looks = 1,
                              .mistakes = 1,
                              .unfinished = 1,
                              .agentRestarts = 1};

/// Everything once that a short round may use on a slow machine, such as the list of completions.
/// What is first used later would count as growth.
constexpr Pace kEverything = [] {
  Pace pace = kShortRound;
  pace.mails = 1;
  pace.invitations = 1;
  return pace;
}();

constexpr Length kHour = {.warmUp = kTenth, .warmUpRounds = 3, .pace = kTenth, .rounds = 10};
constexpr Length kShort = {
    .warmUp = kEverything, .warmUpRounds = 1, .pace = kShortRound, .rounds = 2};

void printTitles() {
  std::printf("%-*s", kNameWidth, "round");
  for (const Column &column : columns()) std::printf("%*s", kColumnWidth, column.title);
  std::printf("%*s\n", kColumnWidth, "refreshes");
}

void printRound(const std::string &name, const Usage &usage, int refreshes) {
  std::printf("%-*s", kNameWidth, name.c_str());
  for (const Column &column : columns()) std::printf("%*.0f", kColumnWidth, column.value(usage));
  std::printf("%*d\n", kColumnWidth, refreshes);
  std::fflush(stdout);
}

/// Prints what is beyond its bound; returns whether nothing is.
bool isFlat(const Usage &before, const Usage &after) {
  bool flat = true;
  for (const Column &column : columns()) {
    if (column.bounded == Bounded::Not) continue;
    const bool isGrowth = column.bounded == Bounded::Growth;
    const double bounded = column.value(after) - (isGrowth ? column.value(before) : 0);
    if (bounded <= column.bound) continue;
    std::printf(isGrowth ? "grown: %s by %.0f, may be %.0f\n" : "%s: %.0f, may be %.0f\n",
                column.title, bounded, column.bound);
    flat = false;
  }
  if (flat) std::printf("flat\n");
  return flat;
}

/// Returns whether nothing has grown.
bool soak(const Length &length) {
  Day day({.shortDays = SHORT_DAYS, .countingAllocator = COUNTING_ALLOCATOR});
  const auto measured = [&](const std::string &name) {
    const Usage usage = usageAtRest(day.application(), day.memory(), "ContextMenuApp");
    printRound(name, usage, day.refreshes());
    return usage;
  };
  printTitles();
  Usage before = measured("start");
  for (int round = 0; round < length.warmUpRounds; ++round) {
    day.spend(length.warmUp);
    before = measured("warm-up");
  }
  Usage after = before;
  for (int round = 1; round <= length.rounds; ++round) {
    day.spend(length.pace);
    after = measured(std::to_string(round));
  }
  return isFlat(before, after);
}

}  // namespace

int main(int argc, char *argv[]) {
  enterPrivateSession(argc, argv, Screen::Private);
  const bool isShort = argc == 2 && std::string_view(argv[1]) == "--short";
  if (argc > 1 && !isShort) {
    std::fprintf(stderr, "usage: %s [--short]\n", argv[0]);
    return 2;
  }
  bool flat = false;
  @autoreleasepool {
    flat = soak(isShort ? kShort : kHour);
  }
  std::fflush(stdout);
  // Without the destructors of the platform's libraries, which race their own threads.
  _exit(flat ? 0 : 1);
}
