#include <gtest/gtest.h>

#import <Foundation/Foundation.h>

#include "tests/support/PoolForEachTest.h"
#include "tests/support/PrivateSession.h"
#include "tests/support/ProgramEnd.h"

int main(int argc, char *argv[]) {
  enterPrivateSession(argc, argv, Screen::None);
  @autoreleasepool {
    testing::InitGoogleTest(&argc, argv);  // makes the parameters of tests
  }
  giveEachTestAPool();
  int result = 0;
  @autoreleasepool {
    // An application has its run loop before it has a second thread. When both are created at the
    // same time, each waits for a lock of the platform that the other one holds.
    [NSRunLoop currentRunLoop];
    result = RUN_ALL_TESTS();
  }
  endProgram(result);
}
