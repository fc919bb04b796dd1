#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>

#import "app/ContextMenuAppAppDelegate.h"
#include "tests/support/Strings.h"
#include "tests/support/engine/ScriptedEngine.h"

/// As a path in a process that ends while it is read.
@interface UnreadablePath : NSString
@end

@implementation UnreadablePath

- (NSUInteger)length {
  [NSException raise:NSGenericException format:@"unreadable"];
  return 0;
}

- (unichar)characterAtIndex:(NSUInteger)index {
  (void)index;
  return 0;
}

@end

namespace {

template <class Work>
bool raises(Work work) {
  @try {
    work();
    return false;
  } @catch (NSException *) {
    return true;
  }
}

struct PathResolution : testing::Test {
  ContextMenuAppAppDelegate *delegate = [[ContextMenuAppAppDelegate alloc] init];
  ScriptedEngine &engine = ScriptedEngine::shared();
  NSString *outId = @"";

  PathResolution() {
    engine = ScriptedEngine();
    [delegate setSyncedFilePath:@"/Users/ada/Brisvale"];
    [delegate setHomeFolderInfo:@{@"homefolder" : @"home-1"}];
  }
  ~PathResolution() override { [delegate release]; }

  // clang-format off
  int file(NSString *path) { return [delegate GetFileIdByPath:path:nullptr:&outId]; }
  int folder(NSString *path) { return [delegate GetFolderIdByPath:path:nullptr:&outId]; }
  int state(NSString *path) { return [delegate GetFileState:path:5]; }
  bool contains(NSString *string, NSString *part) { return [delegate containsString:string:part]; }
  // clang-format on

  long count(const std::string &call) {
    return std::count(engine.calls.begin(), engine.calls.end(), call);
  }
};

using Calls = std::vector<std::string>;

}  // namespace

TEST_F(PathResolution, AKnownFileGetsItsIdAndZero) {
  engine.files["/Users/ada/Brisvale/a.txt"] = "id-a";
  EXPECT_EQ(file(@"/Users/ada/Brisvale/a.txt"), 0);
  EXPECT_EQ(text(outId), "id-a");
  EXPECT_EQ(engine.calls, (Calls{"BvInitialize", "BvGetFileIdByName /Users/ada/Brisvale/a.txt",
                                 "BvUninitialize"}));
}

TEST_F(PathResolution, AKnownFolderGetsItsIdAndZero) {
  engine.folders["/Users/ada/Brisvale/Plans"] = "id-p";
  EXPECT_EQ(folder(@"/Users/ada/Brisvale/Plans"), 0);
  EXPECT_EQ(text(outId), "id-p");
}

TEST_F(PathResolution, AnUnknownPathHandsTheCodeOnAndLeavesTheIdAlone) {
  EXPECT_EQ(file(@"/elsewhere"), ScriptedEngine::kUnknownPath);
  EXPECT_EQ(folder(@"/elsewhere"), ScriptedEngine::kUnknownPath);
  EXPECT_EQ(text(outId), "");
}

TEST_F(PathResolution, AnUnknownPathLeavesTheIdAloneWhateverTheBufferHolds) {
  char buffer[] = "scratch";
  // clang-format off
  EXPECT_NE([delegate GetFileIdByPath:@"/elsewhere":buffer:&outId], 0);
  EXPECT_NE([delegate GetFolderIdByPath:@"/elsewhere":buffer:&outId], 0);
  // clang-format on
  EXPECT_EQ(text(outId), "");
}

TEST_F(PathResolution, TheIdNeedNotBeAskedFor) {
  engine.files["/known"] = "id";
  engine.folders["/known"] = "id";
  NSString *const home = @"/Users/ada/Brisvale/MyDocs";
  // clang-format off
  EXPECT_EQ([delegate GetFileIdByPath:@"/known":nullptr:nullptr], 0);
  EXPECT_EQ([delegate GetFolderIdByPath:@"/known":nullptr:nullptr], 0);
  EXPECT_EQ([delegate GetFolderIdByPath:home:nullptr:nullptr], 0);
  // clang-format on
}

TEST_F(PathResolution, CodesArePassedOnUnchanged) {
  for (const int code : {-1, 1, 2147483647}) {
    engine.queryCode = code;
    EXPECT_EQ(file(@"/x"), code);
    EXPECT_EQ(folder(@"/x"), code);
    EXPECT_EQ(state(@"/x"), code);
  }
}

TEST_F(PathResolution, ALibraryThatCannotBeInitialisedIsNotAskedButStillEnded) {
  engine.initializeCode = 9;
  EXPECT_EQ(file(@"/x"), 9);
  EXPECT_EQ(folder(@"/x"), 9);
  EXPECT_EQ(state(@"/x"), 9);
  const Calls pair = {"BvInitialize", "BvUninitialize"};
  EXPECT_EQ(engine.calls, (Calls{pair[0], pair[1], pair[0], pair[1], pair[0], pair[1]}));
  EXPECT_EQ(text(outId), "");
}

TEST_F(PathResolution, TheLibraryIsEndedExactlyOnceWhateverHappens) {
  engine.files["/known"] = "id";
  for (NSString *path in @[ @"/known", @"/unknown" ]) {
    engine.calls.clear();
    file(path);
    EXPECT_EQ(count("BvUninitialize"), 1) << text(path);
    engine.calls.clear();
    folder(path);
    EXPECT_EQ(count("BvUninitialize"), 1) << text(path);
    engine.calls.clear();
    state(path);
    EXPECT_EQ(count("BvUninitialize"), 1) << text(path);
  }
}

TEST_F(PathResolution, TheLibraryIsEndedExactlyOnceWhenThePathCannotBeRead) {
  UnreadablePath *const path = [[[UnreadablePath alloc] init] autorelease];
  EXPECT_TRUE(raises([&] { file(path); }));
  EXPECT_TRUE(raises([&] { folder(path); }));
  EXPECT_TRUE(raises([&] { state(path); }));
  const Calls pair = {"BvInitialize", "BvUninitialize"};
  EXPECT_EQ(engine.calls, (Calls{pair[0], pair[1], pair[0], pair[1], pair[0], pair[1]}));
}

TEST_F(PathResolution, MyDocsIsAnsweredFromTheHomeFolderInfoWithoutAskingTheLibrary) {
  EXPECT_EQ(folder(@"/Users/ada/Brisvale/MyDocs"), 0);
  EXPECT_EQ(text(outId), "home-1");
  EXPECT_EQ(engine.calls, (Calls{"BvInitialize", "BvUninitialize"}));
}

TEST_F(PathResolution, MyDocsInOtherLetterCaseGoesToTheLibrary) {
  engine.folders["/Users/ada/Brisvale/mydocs"] = "id-lower";
  EXPECT_EQ(folder(@"/Users/ada/Brisvale/mydocs"), 0);
  EXPECT_EQ(text(outId), "id-lower");
}

TEST_F(PathResolution, MyDocsAsAFileGoesToTheLibrary) {
  EXPECT_EQ(file(@"/Users/ada/Brisvale/MyDocs"), ScriptedEngine::kUnknownPath);
}

TEST_F(PathResolution, MyDocsGetsNoIdWhenTheLibraryCannotBeInitialised) {
  engine.initializeCode = 3;
  EXPECT_EQ(folder(@"/Users/ada/Brisvale/MyDocs"), 3);
  EXPECT_EQ(text(outId), "");
}

TEST_F(PathResolution, MyDocsWithoutHomeFolderInfoGivesZeroAndNoId) {
  [delegate setHomeFolderInfo:@{}];
  EXPECT_EQ(folder(@"/Users/ada/Brisvale/MyDocs"), 0);
  EXPECT_EQ(text(outId), "(nil)");
}

TEST_F(PathResolution, AHomeFolderThatIsNoStringIsMissing) {
  [delegate setHomeFolderInfo:@{@"homefolder" : @42}];
  EXPECT_EQ(folder(@"/Users/ada/Brisvale/MyDocs"), 0);
  EXPECT_EQ(text(outId), "(nil)");
}

TEST_F(PathResolution, TheIdBufferIsWhatTheOutPointerStartsAs) {
  char buffer[] = "scratch";
  [delegate GetFileIdByPath:@"/x":buffer:&outId];
  EXPECT_EQ(engine.initialPointer, buffer);
}

TEST_F(PathResolution, AnIdThatTheLibraryDoesNotSetIsNoId) {
  engine.files["/x"] = nullptr;
  EXPECT_EQ(file(@"/x"), 0);
  EXPECT_EQ(text(outId), "");
}

TEST_F(PathResolution, AnIdThatIsNotUtf8IsNoId) {
  engine.files["/x"] = "\xff\xfe";
  EXPECT_EQ(file(@"/x"), 0);
  EXPECT_EQ(text(outId), "");
}

namespace {

/// A path, as the bytes that the library must get.
struct Path {
  const char *name;
  std::string bytes;
};

void PrintTo(const Path &path, std::ostream *out) {
  *out << path.name;
}

struct PathBytes : PathResolution, testing::WithParamInterface<Path> {
  const std::string bytes = "/Users/ada/Brisvale" + GetParam().bytes;
  NSString *path = [[[NSString alloc] initWithBytes:bytes.data()
                                             length:bytes.size()
                                           encoding:NSUTF8StringEncoding] autorelease];
};

}  // namespace

TEST_P(PathBytes, ReachTheLibraryAsTheyAre) {
  file(path);
  folder(path);
  state(path);
  const std::string begin = "BvInitialize";
  const std::string end = "BvUninitialize";
  EXPECT_EQ(engine.calls,
            (Calls{begin, "BvGetFileIdByName " + bytes, end, begin, "BvGetFolderIdByName " + bytes,
                   end, begin, "BvGetFileSyncState " + bytes, end}));
}

// The file system of a Mac keeps names decomposed, most others as they were entered.
INSTANTIATE_TEST_SUITE_P(
    Of, PathBytes,
    testing::Values(Path{"PlainText", "/a.txt"}, Path{"ComposedAccent", "/Caf\xC3\xA9"},
                    Path{"DecomposedAccent", "/Cafe\xCC\x81"},
                    Path{"TwoAccentsInOneOrder", "/q\xCC\xA3\xCC\x87"},
                    Path{"TwoAccentsInTheOther", "/q\xCC\x87\xCC\xA3"},
                    Path{"Angstrom", "/\xE2\x84\xAB"}, Path{"LetterAWithRing", "/\xC3\x85"},
                    Path{"Ligature", "/\xEF\xAC\x81le"}, Path{"ComposedHangul", "/\xED\x95\x9C"},
                    Path{"DecomposedHangul", "/\xE1\x84\x92\xE1\x85\xA1\xE1\x86\xAB"},
                    Path{"Devanagari", "/\xE0\xA4\xA8\xE0\xA4\xBF"},
                    Path{"RightToLeft", "/\xD9\x85\xD8\xAC\xD9\x84\xD8\xAF \xE2\x80\x8F"},
                    Path{"HalfWidthKana", "/\xEF\xBD\xB6\xEF\xBE\x9E"},
                    Path{"JoinedEmoji", "/\xF0\x9F\x91\xA9\xE2\x80\x8D\xF0\x9F\x94\xAC"},
                    Path{"BlanksAtItsEnds", "/ a\xC2\xA0 "},
                    Path{"CharactersOfEscapes", "/100%25 \\n~:&?#\n\t'\""},
                    Path{"TwoSlashesAndDots", "//a/./b/../c"}, Path{"OtherLetterCase", "/MYDOCS"},
                    Path{"FolderWithoutASlash", "/Plans"}, Path{"FolderWithASlash", "/Plans/"},
                    Path{"MyDocsWithASlash", "/MyDocs/"}, Path{"InsideMyDocs", "/MyDocs/Plans"},
                    Path{"TheSyncedFolderItself", ""}),
    [](const auto &info) { return info.param.name; });

TEST_F(PathResolution, MyDocsInAnotherNormalisationGoesToTheLibrary) {
  [delegate setSyncedFilePath:@"/Users/jos\u00E9/Brisvale"];
  folder(@"/Users/jose\u0301/Brisvale/MyDocs");
  EXPECT_EQ(engine.calls,
            (Calls{"BvInitialize", "BvGetFolderIdByName /Users/jose\xCC\x81/Brisvale/MyDocs",
                   "BvUninitialize"}));
}

TEST_F(PathResolution, PathsReachTheLibraryInUtf8) {
  engine.files["/Users/ada/Brisvale/日本\n😀"] = "id-é";
  EXPECT_EQ(file(@"/Users/ada/Brisvale/日本\n😀"), 0);
  EXPECT_EQ(text(outId), "id-é");
}

TEST_F(PathResolution, NoPathAtAllIsTheEmptyPath) {
  EXPECT_EQ(file(nil), ScriptedEngine::kUnknownPath);
  EXPECT_EQ(folder(nil), ScriptedEngine::kUnknownPath);
  EXPECT_EQ(state(nil), 0);
}

TEST_F(PathResolution, APathThatUtf8CannotHoldIsAskedForAndUnknown) {
  NSMutableString *const alone = [NSMutableString stringWithString:@"/"];
  [alone appendFormat:@"%C", static_cast<unichar>(0xD800)];
  ASSERT_EQ([alone length], 2u);
  EXPECT_EQ(file(alone), ScriptedEngine::kUnknownPath);
  EXPECT_EQ(engine.calls[1], "BvGetFileIdByName /\uFFFD");
}

TEST_F(PathResolution, TheFileStateAnswersWhetherTheQuerySucceededAndNothingElse) {
  int callers = 5;
  EXPECT_EQ(([delegate GetFileState:@"/x":callers]), 0);
  EXPECT_EQ(callers, 5);
  EXPECT_EQ(engine.calls, (Calls{"BvInitialize", "BvGetFileSyncState /x", "BvUninitialize"}));
}

TEST_F(PathResolution, ContainsFindsThePartInAnyLetterCase) {
  EXPECT_TRUE(contains(@"/users/ADA/brisvale/x", @"/Users/ada/Brisvale"));
}

TEST_F(PathResolution, ContainsFindsThePartAnywhere) {
  EXPECT_TRUE(contains(@"/Volumes/Backup/Users/ada/Brisvale/x", @"/Users/ada/Brisvale"));
  EXPECT_TRUE(contains(@"/Users/ada/BrisvaleOld", @"/Users/ada/Brisvale"));
}

TEST_F(PathResolution, ContainsDoesNotFindWhatIsNotThere) {
  EXPECT_FALSE(contains(@"/Users/ada/Documents", @"/Users/ada/Brisvale"));
  EXPECT_FALSE(contains(@"", @"/Users/ada/Brisvale"));
}

TEST_F(PathResolution, ContainsIsFalseForNothing) {
  EXPECT_FALSE(contains(nil, @"x"));
  EXPECT_FALSE(contains(@"x", nil));
  EXPECT_FALSE(contains(@"x", @""));
}
