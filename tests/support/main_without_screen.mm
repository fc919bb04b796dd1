#include <gtest/gtest.h>

#import <Foundation/Foundation.h>

#include "tests/support/PoolForEachTest.h"
#include "tests/support/PrivateSession.h"
#include "tests/support/ProgramEnd.h"

int main(int argc, char *argv[]) {
  enterPrivateSession(argc, argv, Screen::None);
  testing::InitGoogleTest(&argc, argv);
  giveEachTestAPool();
  int result = 0;
  @autoreleasepool {
    result = RUN_ALL_TESTS();
  }
  endProgram(result);
}
