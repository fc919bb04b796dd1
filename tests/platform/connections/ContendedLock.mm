#include <gtest/gtest.h>

#import <Foundation/Foundation.h>

#include <sys/stat.h>
#include <unistd.h>

#import "platform/gnustep/runtime/MethodReplacement.h"
#include "tests/support/CapturedLog.h"

namespace {

constinit platform::ReplacedMethod<BOOL(NSString *, BOOL *)> platformFileExists;

/// The lock that changes its owner when somebody looks at it.
NSString *passedOn = nil;

BOOL fileExists(id manager, SEL selector, NSString *path, BOOL *isDirectory) {
  if (![path isEqualToString:passedOn]) {
    return platformFileExists(manager, selector, path, isDirectory);
  }
  rmdir([path fileSystemRepresentation]);
  const BOOL exists = platformFileExists(manager, selector, path, isDirectory);
  mkdir([path fileSystemRepresentation], 0755);
  return exists;
}

struct ContendedLock : testing::Test {
  NSString *path = [NSTemporaryDirectory() stringByAppendingPathComponent:@"contended"];
  NSDistributedLock *lock = [NSDistributedLock lockWithPath:path];
  CapturedLog log;

  ~ContendedLock() override {
    passedOn = nil;
    rmdir([path fileSystemRepresentation]);
  }
};

bool raises(NSDistributedLock *taken) {
  @try {
    [taken tryLock];
  } @catch (NSException *exception) {
    return true;
  }
  return false;
}

}  // namespace

TEST_F(ContendedLock, IsNotTakenAndNothingIsLoggedWhenAnotherProcessPassesItOn) {
  platformFileExists.install([NSFileManager class], @selector(fileExistsAtPath:isDirectory:),
                             fileExists);
  mkdir([path fileSystemRepresentation], 0755);
  passedOn = path;
  EXPECT_FALSE([lock tryLock]);
  EXPECT_EQ(log.lines(), Lines());
}

TEST_F(ContendedLock, IsTakenOnceWhenItIsFreeAndIsGivenBack) {
  ASSERT_TRUE([lock tryLock]);
  EXPECT_LT(-[[lock lockDate] timeIntervalSinceNow], 60);
  EXPECT_FALSE([[NSDistributedLock lockWithPath:path] tryLock]);
  EXPECT_TRUE(raises(lock));
  [lock unlock];
  EXPECT_TRUE([lock tryLock]);
  [lock unlock];
  EXPECT_EQ(log.lines(), Lines());
}
