#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <fstream>

#import "tests/support/FileManagerProcess.h"
#include "tests/support/HeldReply.h"
#include "tests/support/Strings.h"

namespace {

/// Longer than the time-out for a file manager that hangs.
constexpr NSTimeInterval kBoundSeconds = 15;

NSString *const kScript = @"property stdout : \"\"\ntell application \"Finder\"\n"
                          @"copy selection to selectedItems\n"
                          @"if ((count of selectedItems) > 0) then\n"
                          @"repeat with x in selectedItems\n"
                          @"set itemN to (POSIX path of (x as alias))\n"
                          @"set stdout to stdout & itemN & \"\n\"\n"
                          @"end repeat\nelse\nend if\nstdout\nend tell";

NSAppleScript *script(NSString *source = kScript) {
  return [[[NSAppleScript alloc] initWithSource:source] autorelease];
}

struct FinderScript : testing::Test {
  std::string folder = newTemporaryFolder();

  NSString *file(const std::string &name) const {
    std::ofstream(folder + "/" + name) << "content";
    return [NSString stringWithUTF8String:(folder + "/" + name).c_str()];
  }
  NSString *subfolder(const std::string &name) const {
    std::filesystem::create_directory(folder + "/" + name);
    return [NSString stringWithUTF8String:(folder + "/" + name).c_str()];
  }

  /// The result of the script, "(nil)" for none.
  static std::string answer() {
    return text([[script() executeAndReturnError:nullptr] stringValue]);
  }

  static int errorNumber() {
    NSDictionary *error = nil;
    EXPECT_EQ([script() executeAndReturnError:&error], nil);
    EXPECT_GT([[error objectForKey:NSAppleScriptErrorMessage] length], 0u);
    return [[error objectForKey:NSAppleScriptErrorNumber] intValue];
  }
};

struct FinderScriptWithFileManager : FinderScript {
  FileManagerProcess fileManager;
};

}  // namespace

TEST_F(FinderScript, TheSelectionScriptHasItsLengthAndCompiles) {
  EXPECT_EQ([kScript length], 264u);
  NSAppleScript *const known = script();
  EXPECT_FALSE([known isCompiled]);
  NSDictionary *error = nil;
  EXPECT_TRUE([known compileAndReturnError:&error]);
  EXPECT_TRUE([known isCompiled]);
  EXPECT_EQ(error, nil);
  EXPECT_EQ(text([known source]), text(kScript));
}

TEST_F(FinderScript, AnyOtherScriptIsACompileError) {
  for (NSString *source in @[
         @"", @"beep", [kScript stringByAppendingString:@"\n"], [kScript uppercaseString],
         [kScript stringByReplacingOccurrencesOfString:@"\n" withString:@"\r"],
         [kScript substringToIndex:[kScript length] - 1]
       ]) {
    NSAppleScript *const other = script(source);
    NSDictionary *error = nil;
    EXPECT_FALSE([other compileAndReturnError:&error]) << text(source);
    EXPECT_EQ([[error objectForKey:NSAppleScriptErrorNumber] intValue], -2741);
    EXPECT_FALSE([other isCompiled]);
    EXPECT_FALSE([other compileAndReturnError:nullptr]);
    EXPECT_EQ([other executeAndReturnError:nullptr], nil);
  }
  EXPECT_FALSE([script(nil) compileAndReturnError:nullptr]);
  EXPECT_FALSE([[[[NSAppleScript alloc] init] autorelease] compileAndReturnError:nullptr]);
}

TEST_F(FinderScript, WithoutAFileManagerThereIsNoAnswerAtOnce) {
  const NSTimeInterval start = [NSDate timeIntervalSinceReferenceDate];
  EXPECT_EQ(errorNumber(), -600);
  EXPECT_LT([NSDate timeIntervalSinceReferenceDate] - start, 2);
}

TEST_F(FinderScriptWithFileManager, NothingSelectedIsTheEmptyText) {
  EXPECT_EQ(answer(), "");
}

TEST_F(FinderScriptWithFileManager, EachPathIsFollowedByALineFeedInTheOrderOfTheSelection) {
  NSString *const b = file("b.txt");
  NSString *const a = file("a.txt");
  fileManager.select(@[ b, a ]);
  EXPECT_EQ(answer(), text(b) + "\n" + text(a) + "\n");
  fileManager.select(@[ a ]);
  EXPECT_EQ(answer(), text(a) + "\n");
}

TEST_F(FinderScriptWithFileManager, AFoldersPathEndsWithOneSlash) {
  NSString *const plans = subfolder("Plans");
  fileManager.select(@[ plans, @"/" ]);
  EXPECT_EQ(answer(), text(plans) + "/\n/\n");
}

TEST_F(FinderScriptWithFileManager, NamesInAnyScriptAndWithLineFeedsAreHandedOnAsTheyAre) {
  NSMutableString *expected = [NSMutableString string];
  NSMutableArray *const paths = [NSMutableArray array];
  for (const char *name : {"日本 😀.txt", "two\nlines", "\nfirst", "last\n", "é %@ \"\\"}) {
    [paths addObject:file(name)];
    [expected appendFormat:@"%@\n", [paths lastObject]];
  }
  fileManager.select(paths);
  EXPECT_EQ(answer(), text(expected));
}

TEST_F(FinderScriptWithFileManager, ALinkToAFolderIsAFolder) {
  subfolder("Plans");
  std::filesystem::create_directory_symlink(folder + "/Plans", folder + "/Link");
  fileManager.select(@[ [NSString stringWithUTF8String:(folder + "/Link").c_str()] ]);
  EXPECT_EQ(answer(), folder + "/Link/\n");
}

TEST_F(FinderScriptWithFileManager, AnItemThatIsGoneMakesTheScriptFailAsAWhole) {
  fileManager.select(@[ file("a.txt"), @"/nowhere/at/all" ]);
  EXPECT_EQ(errorNumber(), -43);
}

TEST_F(FinderScriptWithFileManager, ItsTextGrowsWhenItIsExecutedAgain) {
  NSString *const line = [file("a.txt") stringByAppendingString:@"\n"];
  fileManager.select(@[ file("a.txt") ]);
  NSAppleScript *const twice = script();
  [twice executeAndReturnError:nullptr];
  EXPECT_EQ(text([[twice executeAndReturnError:nullptr] stringValue]), text(line) + text(line));
}

TEST_F(FinderScriptWithFileManager, TenThousandSelectedItemsAreReadInTime) {
  NSMutableArray *const paths = [NSMutableArray array];
  for (int i = 0; i < 10000; ++i) [paths addObject:@"/usr/bin/env"];
  fileManager.select(paths);
  EXPECT_EQ(answer().size(), 10000 * std::string("/usr/bin/env\n").size());
}

TEST_F(FinderScriptWithFileManager, OneThatHangsIsWaitedForABoundedTime) {
  const HeldReply hold;
  fileManager.setScript(hold.entry(@{@"reply" : @[ @"/usr" ]}));
  const NSTimeInterval start = [NSDate timeIntervalSinceReferenceDate];
  EXPECT_EQ(errorNumber(), -600);
  EXPECT_LT([NSDate timeIntervalSinceReferenceDate] - start, kBoundSeconds);
}

TEST_F(FinderScriptWithFileManager, OneThatIsStoppedIsWaitedForABoundedTime) {
  fileManager.process().signal(SIGSTOP);
  const NSTimeInterval start = [NSDate timeIntervalSinceReferenceDate];
  EXPECT_EQ(errorNumber(), -600);
  EXPECT_LT([NSDate timeIntervalSinceReferenceDate] - start, kBoundSeconds);
}

TEST_F(FinderScriptWithFileManager, AfterOneThatWasTooSlowTheNextAnswerIsReadAgain) {
  const HeldReply hold;
  fileManager.setScript(hold.entry(@{@"reply" : @[ @"/usr" ]}));
  EXPECT_EQ(answer(), "(nil)");
  hold.release();
  fileManager.select(@[ @"/usr/bin" ]);
  EXPECT_EQ(answer(), "/usr/bin/\n");
}

TEST_F(FinderScriptWithFileManager, OneThatBreaksOffOrAnswersSomethingElseHasNoAnswer) {
  for (NSDictionary *entry in @[
         @{@"nil" : @1}, @{@"raise" : @"SomeException"}, @{@"reply" : @"/usr"},
         @{@"reply" : @42},
         @{@"reply" : @{@"a" : @"/usr"}},
         @{@"reply" : @[ @42 ]}, @{@"die" : @"before"}
       ]) {
    fileManager.setScript(entry);
    EXPECT_EQ(answer(), "(nil)") << text(entry);
  }
}

TEST_F(FinderScriptWithFileManager, LeavesNoConnectionBehind) {
  answer();
  const NSUInteger before = [[NSConnection allConnections] count];
  for (int i = 0; i < 100; ++i) {
    @autoreleasepool {
      answer();
    }
  }
  EXPECT_EQ([[NSConnection allConnections] count], before);
}
