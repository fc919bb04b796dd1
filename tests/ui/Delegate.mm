#include <gtest/gtest.h>

#include <ostream>

#import <objc/runtime.h>

#import "app/ContextMenuAppAppDelegate.h"
#include "tests/support/AgentProcess.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/Pump.h"
#include "tests/support/Strings.h"
#include "tests/ui/Application.h"

namespace {

constexpr NSTimeInterval kOneDay = 86400;

/// A launch looks for an agent twice, each time until this much time has passed, and after a try
/// that failed it pauses before it looks at the time.
constexpr double kAttemptSeconds = 15.0;
constexpr double kPauseSeconds = 0.1;

/// How late a busy machine may end the last pause of each. A third attempt would take 15 s more,
/// attempts of 18 s would take 6 s more.
constexpr double kLatenessSeconds = 5.0;

const Lines kLinesOfAGoodLaunch = {"Context Menu Application Launched for first time",
                                   "Context Menu Plugin Connection successfully created."};

NSDictionary *script() {
  NSArray *const book = @[ @{@"name" : @"Doe, John", @"primaryemail" : @"a@b"} ];
  return @{
    @"getEmployeeAddressBook" : @{@"reply" : success(book)},
    @"getHomeDirectoryInfo" : @{@"reply" : @{@"homefolder" : @"home-1", @"quota" : @5}}
  };
}

/// All that can be read in a menu and those below it.
Lines titlesIn(NSMenu *menu) {
  Lines titles = {text([menu title])};
  for (NSMenuItem *item in [menu itemArray]) {
    titles.push_back(text([item title]));
    if (![item hasSubmenu]) continue;
    for (const std::string &title : titlesIn([item submenu])) titles.push_back(title);
  }
  return titles;
}

struct Delegate : testing::Test {
  ContextMenuAppAppDelegate *delegate = loadedDelegate();

  void launch() { [delegate applicationDidFinishLaunching:nil]; }
};

/// The agent's reply about the home folder.
struct OddReply {
  const char *name;
  NSDictionary *(*entry)();
};

void PrintTo(const OddReply &reply, std::ostream *out) {
  *out << reply.name;
}

struct OddHomeFolder : Delegate, testing::WithParamInterface<OddReply> {
  /// Releases what a launch makes, which is only once in a process otherwise.
  void TearDown() override {
    [delegate setHomeFolderInfo:nil];
    [delegate setValue:nil forKey:@"contextMenuPlugin"];
  }
};

}  // namespace

TEST_F(Delegate, TheMainInterfaceResourceMakesItTheApplicationsDelegate) {
  EXPECT_TRUE([delegate isKindOfClass:[ContextMenuAppAppDelegate class]]);
  EXPECT_TRUE([delegate respondsToSelector:@selector(applicationDidFinishLaunching:)]);
}

TEST_F(Delegate, ItsFieldsStandInTheirOrder) {
  unsigned count = 0;
  Ivar *const fields = class_copyIvarList([ContextMenuAppAppDelegate class], &count);
  Lines names;
  for (unsigned i = 0; i < count; ++i) names.push_back(ivar_getName(fields[i]));
  free(fields);
  EXPECT_EQ(names, (Lines{"window", "krvContextMenu", "copyLink", "sendFile", "shareFolder",
                          "sendFolder", "contextMenuFlag", "addressBookForSend",
                          "addressBookForShare", "employeeContacts", "syncedFilePath",
                          "updateAddressBookTimer", "homeFolderInfo", "contextMenuPlugin"}));
}

TEST_F(Delegate, CopyPropertiesKeepTheirOwnCopy) {
  NSMutableString *const path = [NSMutableString stringWithString:@"/a"];
  [delegate setSyncedFilePath:path];
  [path appendString:@"/b"];
  EXPECT_EQ(text([delegate syncedFilePath]), "/a");
  NSMutableDictionary *const info = [NSMutableDictionary dictionary];
  [delegate setHomeFolderInfo:info];
  [info setObject:@"x" forKey:@"homefolder"];
  EXPECT_EQ([[delegate homeFolderInfo] count], 0u);
}

TEST_F(Delegate, TheSyncedFolderIsUnderUsersWhereverTheHomeDirectoryIs) {
  AgentProcess agent;
  launch();
  // The private session's home directory is a temporary folder.
  EXPECT_FALSE([NSHomeDirectory() hasPrefix:@"/Users/"]);
  EXPECT_EQ(text([delegate syncedFilePath]), "/Users/" + text(NSUserName()) + "/Brisvale");
}

TEST_F(Delegate, LaunchLoadsTheAddressBooksAndTheHomeFolderInfoAndSetsTheFlag) {
  AgentProcess agent;
  agent.setScript(script());
  EXPECT_FALSE([delegate contextMenuFlag]);
  const CapturedLog log;
  launch();
  EXPECT_EQ(log.lines(), kLinesOfAGoodLaunch);
  EXPECT_TRUE([delegate contextMenuFlag]);
  EXPECT_EQ(text([[delegate addressBookForShare] objectAtIndex:0]), "John Doe<a@b>");
  EXPECT_EQ(text([[delegate employeeContacts] objectAtIndex:0]), "a@b");
  EXPECT_TRUE(([[delegate homeFolderInfo] isEqual:@{@"homefolder" : @"home-1", @"quota" : @5}]));
  EXPECT_EQ([delegate addressBookForSend], nil);
}

TEST_F(Delegate, TheHomeFolderInfoHasAllItsEntriesWhateverTheirKeys) {
  AgentProcess agent;
  NSDictionary *const info = @{@"homefolder" : @"home-1", @"value" : @"v", @"error" : @0};
  agent.answer(@"getHomeDirectoryInfo", info);
  launch();
  EXPECT_TRUE([[delegate homeFolderInfo] isEqual:info]) << text([delegate homeFolderInfo]);
}

TEST_F(Delegate, TheHomeFolderIsAskedForAlsoWhereTheAgentDoesNotCountAsRunning) {
  AgentProcess agent({.identifier = "org.example.other"});
  agent.setScript(script());
  launch();
  EXPECT_EQ(text([[delegate homeFolderInfo] objectForKey:@"homefolder"]), "home-1");
  EXPECT_EQ([[delegate addressBookForShare] count], 0u);
}

TEST_F(Delegate, TheMenusHaveTextsInPlaceOfTheirKeys) {
  Lines titles = titlesIn([NSApp mainMenu]);
  for (const std::string &title : titlesIn([delegate krvContextMenu])) titles.push_back(title);
  EXPECT_GT(titles.size(), 10u);
  for (const std::string &title : titles) EXPECT_FALSE(title.ends_with("Key")) << title;
}

TEST_F(Delegate, WithoutAnAgentLaunchTakesTwoAttemptsAndEndsWithEmptyListsAndAnEmptyDictionary) {
  const CapturedLog log;
  const double start = detail::secondsNow();
  launch();
  const double seconds = detail::secondsNow() - start;
  EXPECT_GE(seconds, 2 * kAttemptSeconds);
  EXPECT_LT(seconds, 2 * (kAttemptSeconds + kPauseSeconds) + kLatenessSeconds);
  EXPECT_TRUE([[delegate homeFolderInfo] isEqual:@{}]);
  EXPECT_EQ([[delegate homeFolderInfo] objectForKey:@"homefolder"], nil);
  EXPECT_EQ([[delegate addressBookForShare] count], 0u);
  EXPECT_TRUE([delegate contextMenuFlag]);
  EXPECT_EQ(log.lines(), kLinesOfAGoodLaunch);
  EXPECT_EQ([NSApp modalWindow], nil);
}

TEST_P(OddHomeFolder, GivesAnEmptyDictionary) {
  AgentProcess agent;
  agent.setScript(@{@"getHomeDirectoryInfo" : GetParam().entry()});
  launch();
  EXPECT_TRUE([[delegate homeFolderInfo] isEqual:@{}]);
}

INSTANTIATE_TEST_SUITE_P(
    Reply, OddHomeFolder,
    testing::Values(
        OddReply{"Text", []() -> NSDictionary * { return @{@"reply" : @"text"}; }},
        OddReply{"Array", []() -> NSDictionary * { return
                                                       @{@"reply" : @[ @"homefolder" ]}; }},
        OddReply{"Nil", []() -> NSDictionary * { return
                                                     @{@"nil" : @1}; }},
        OddReply{"None", []() -> NSDictionary * { return @{@"raise" : @"SomeException"}; }}),
    [](const auto &info) { return info.param.name; });

TEST_F(Delegate, TheRefreshIsDueOneDayAfterLaunchAndThenEveryDay) {
  AgentProcess agent;
  const NSTimeInterval before = [NSDate timeIntervalSinceReferenceDate];
  launch();
  const NSTimeInterval after = [NSDate timeIntervalSinceReferenceDate];
  NSTimer *const timer = [delegate updateAddressBookTimer];
  EXPECT_TRUE([timer isValid]);
  EXPECT_EQ([timer timeInterval], kOneDay);
  EXPECT_GE([[timer fireDate] timeIntervalSinceReferenceDate], before + kOneDay);
  EXPECT_LE([[timer fireDate] timeIntervalSinceReferenceDate], after + kOneDay);
}

TEST_F(Delegate, BecomingActiveOnlyWritesItsLine) {
  [delegate setContextMenuFlag:NO];
  const NSUInteger windows = [[NSApp windows] count];
  const CapturedLog log;
  [delegate applicationDidBecomeActive:nil];
  EXPECT_EQ(log.lines(), Lines{"Context Menu Application Did Become Active"});
  EXPECT_FALSE([delegate contextMenuFlag]);
  EXPECT_EQ([[NSApp windows] count], windows);
}

TEST_F(Delegate, ThePlatformTellsItWhenTheApplicationBecomesActive) {
  const CapturedLog log;
  [NSApp activateIgnoringOtherApps:YES];
  EXPECT_EQ(log.lines(), Lines{"Context Menu Application Did Become Active"});
}

TEST_F(Delegate, HideMeHidesTheApplication) {
  [NSApp unhideWithoutActivation];
  [delegate hideMe];
  EXPECT_TRUE([NSApp isHidden]);
}

TEST_F(Delegate, TheApplicationShowsNothingAtRest) {
  AgentProcess agent;
  launch();
  for (NSWindow *window in [NSApp windows]) EXPECT_FALSE([window isVisible]) << text(window);
}
