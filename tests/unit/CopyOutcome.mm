#import "windows/send/CopyOutcome.h"

#include <gtest/gtest.h>

TEST(CopyOutcome, NoReplyAndAnEmptyOneComeFirstWhateverTheStatus) {
  EXPECT_EQ(outcomeOfCopy(nil, @"0"), CopyOutcome::NoReply);
  EXPECT_EQ(outcomeOfCopy(@{}, @"0"), CopyOutcome::NoReply);
  EXPECT_EQ(outcomeOfCopy(@{}, nil), CopyOutcome::NoReply);
}

TEST(CopyOutcome, OnlyTheStatusZeroIsACopy) {
  EXPECT_EQ(outcomeOfCopy(
                @{@"error" : @0}, @"0"),
            CopyOutcome::Copied);
  EXPECT_EQ(outcomeOfCopy(
                @{@"error" : @1}, @"quota"),
            CopyOutcome::Refused);
  EXPECT_EQ(outcomeOfCopy(
                @{@"error" : @1}, nil),
            CopyOutcome::Refused);
  EXPECT_EQ(outcomeOfCopy(
                @{@"error" : @0}, @""),
            CopyOutcome::Refused);
}
