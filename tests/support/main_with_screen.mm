#include <gtest/gtest.h>

#import <AppKit/AppKit.h>

#include "tests/support/FailureScreenshot.h"
#include "tests/support/MacRules.h"
#include "tests/support/PoolForEachTest.h"
#include "tests/support/PrivateSession.h"
#include "tests/support/ProgramEnd.h"

int main(int argc, char *argv[]) {
  enterPrivateSession(argc, argv, Screen::Private);
  @autoreleasepool {
    testing::InitGoogleTest(&argc, argv);  // makes the parameters of tests
  }
  giveEachTestAPool();
  @autoreleasepool {
    keepMacRulesIfAsked();
  }
  // Owned by the list.
  testing::UnitTest::GetInstance()->listeners().Append(new FailureScreenshot);
  int result = 0;
  @autoreleasepool {
    if (!testing::GTEST_FLAG(list_tests)) {
      NSString *const principal =
          [[[NSBundle mainBundle] infoDictionary] objectForKey:@"NSPrincipalClass"];
      [NSClassFromString(principal) sharedApplication];
      // Without a delegate yet: each test decides when the application's own launch begins.
      [NSApp finishLaunching];
    }
    result = RUN_ALL_TESTS();
  }
  endProgram(result);
}
