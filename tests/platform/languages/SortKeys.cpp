#include "platform/gnustep/languages/SortKeys.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

using Numbers = std::vector<std::uint32_t>;

Numbers sorted(const std::vector<std::string> &texts) {
  platform::SortKeys keys;
  for (const std::string &text : texts) {
    const auto room = keys.roomFor(text.size());
    std::copy(text.begin(), text.end(), room.begin());
    keys.add(text.size());
  }
  return keys.sortedNumbers();
}

}  // namespace

TEST(SortKeys, AreSortedByTheirBytes) {
  EXPECT_EQ(sorted({"b", "a", "c\xFF", "c\x01"}), (Numbers{1, 0, 3, 2}));
}

TEST(SortKeys, ThatBeginAlikeAreSortedByTheRest) {
  EXPECT_EQ(sorted({"beginning2", "beginning10", "beginning1"}), (Numbers{2, 1, 0}));
}

TEST(SortKeys, TheBeginningOfAnotherOneComesFirst) {
  EXPECT_EQ(sorted({"ab", "a", "", "abcdefghi", "abcdefgh"}), (Numbers{2, 1, 0, 4, 3}));
}

TEST(SortKeys, AZeroIsAByteLikeAnyOther) {
  const std::string zero("a\0", 2);
  EXPECT_EQ(sorted({zero, "a"}), (Numbers{1, 0}));
}

TEST(SortKeys, EqualOnesKeepTheirOrder) {
  EXPECT_EQ(sorted({"same", "same", "other", "same"}), (Numbers{2, 0, 1, 3}));
}

TEST(SortKeys, MoreThanABlockOfMemoryHoldsAreSorted) {
  const std::string large(700'000, 'x');
  EXPECT_EQ(sorted({large + "b", large + "a", large}), (Numbers{2, 1, 0}));
}

TEST(SortKeys, WithoutTextsThereAreNoNumbers) {
  EXPECT_EQ(sorted({}), Numbers{});
}
