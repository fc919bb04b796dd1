#include <gtest/gtest.h>

#include <cstdio>

#import <Foundation/Foundation.h>
#include <unistd.h>

#include "tests/support/PoolForEachTest.h"
#include "tests/support/PrivateSession.h"

int main(int argc, char *argv[]) {
  enterPrivateSession(argc, argv, Screen::None);
  testing::InitGoogleTest(&argc, argv);
  giveEachTestAPool();
  int result = 0;
  @autoreleasepool {
    result = RUN_ALL_TESTS();
  }
  // Without the destructors of the platform's libraries, which race their own threads.
  std::fflush(stdout);
  _exit(result);
}
