#include <gtest/gtest.h>

#import "agent/ResultDictionary.h"
#include "tests/support/AgentProcess.h"
#import "tests/support/Arguments.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/Strings.h"
#include "tests/ui/Application.h"
#import "windows/send/CopyLinkController.h"

namespace {

using Lines = std::vector<std::string>;

struct CopyLink : testing::Test {
  CopyLinkController *controller = [[CopyLinkController alloc] init];

  CopyLink() { fillClipboard(); }
  ~CopyLink() override { [controller release]; }

  NSDictionary *link(NSString *unusedPath = @"unused") {
    // clang-format off
    return [controller getCopyLink:unusedPath:YES:NO:@"-1"];
    // clang-format on
  }
};

NSString *onlyOperation(const AgentProcess &agent) {
  NSArray *const operations = agent.operations();
  return [operations count] == 1 ? [operations objectAtIndex:0] : @"(not one)";
}

}  // namespace

TEST_F(CopyLink, StartsAsAFileGivenByItsPath) {
  EXPECT_FALSE([controller isFileId]);
  EXPECT_FALSE([controller isFolder]);
  EXPECT_EQ([controller filePath], nil);
}

TEST_F(CopyLink, AFilesLinkIsAskedOfTheFileOperation) {
  AgentProcess agent;
  [controller setFilePath:@"id-1"];
  [controller setIsFileId:YES];
  link();
  EXPECT_EQ(text(onlyOperation(agent)), "getLinkForFile:::::");
  NSArray *const arguments = [[agent.calls() objectAtIndex:0] objectForKey:@"arguments"];
  EXPECT_TRUE(([arguments isEqual:@[ @"id-1", @1, @0, @"-1", @1 ]])) << text(arguments);
}

TEST_F(CopyLink, AFoldersLinkIsAskedOfTheFolderOperation) {
  AgentProcess agent;
  [controller setFilePath:@"/a/folder"];
  [controller setIsFolder:YES];
  link();
  EXPECT_EQ(text(onlyOperation(agent)), "getLinkForFolder:::::");
  NSArray *const arguments = [[agent.calls() objectAtIndex:0] objectForKey:@"arguments"];
  EXPECT_TRUE(([arguments isEqual:@[ @"/a/folder", @1, @0, @"-1", @0 ]])) << text(arguments);
}

TEST_F(CopyLink, TheLinkIsForTheFilePathWhateverTheFirstArgumentSays) {
  AgentProcess agent;
  [controller setFilePath:@"id-1"];
  link(@"id-2");
  NSArray *const arguments = [[agent.calls() objectAtIndex:0] objectForKey:@"arguments"];
  EXPECT_EQ(text([arguments objectAtIndex:link_operation::kPathOrId]), "id-1");
}

TEST_F(CopyLink, OptionsAndDownloadsAreHandedOnAsTheyAre) {
  AgentProcess agent;
  [controller setFilePath:@"id-1"];
  // clang-format off
  [controller getCopyLink:@"":NO:YES:@"5"];
  // clang-format on
  NSArray *const arguments = [[agent.calls() objectAtIndex:0] objectForKey:@"arguments"];
  EXPECT_TRUE(([arguments isEqual:@[ @"id-1", @0, @1, @"5", @0 ]])) << text(arguments);
}

TEST_F(CopyLink, TheReplyIsReturnedUnchanged) {
  AgentProcess agent;
  NSDictionary *const reply = @{@"error" : @3, @"value" : @"v", @"errorMessage" : @"why"};
  agent.answer(@"getLinkForFile:::::", reply);
  EXPECT_TRUE([link() isEqual:reply]);
}

TEST_F(CopyLink, AnAgentKilledDuringTheCallIsNoReply) {
  AgentProcess agent;
  agent.setScript(@{@"getLinkForFile:::::" : @{@"die" : @"before"}});
  EXPECT_EQ(link(), nil);
}

TEST_F(CopyLink, ASuccessfulReplyPutsTheLinkOnTheClipboardAsASingleString) {
  const CapturedLog log;
  EXPECT_EQ(text([controller pasteToClipboard:success(@"https://x/y")]), "0");
  EXPECT_EQ(text(clipboardText()), "https://x/y");
  NSArray *const types = [[NSPasteboard generalPasteboard] types];
  EXPECT_EQ(text([types componentsJoinedByString:@" "]), text(NSStringPboardType));
  EXPECT_EQ(log.lines(), Lines{"copy success = 1"});
}

TEST_F(CopyLink, LinksInAnyScriptAreNotChanged) {
  for (NSString *link in @[ @"https://例え.jp/漢字", @"https://x/😀?a=%20b&c", @"رابط", @"a\nb" ]) {
    EXPECT_EQ(text([controller pasteToClipboard:success(link)]), "0");
    EXPECT_EQ(text(clipboardText()), text(link));
  }
}

TEST_F(CopyLink, AHugeLinkIsNotCut) {
  NSString *const link = [@"https://" stringByPaddingToLength:1000000
                                                   withString:@"x"
                                              startingAtIndex:0];
  EXPECT_EQ(text([controller pasteToClipboard:success(link)]), "0");
  // On a busy machine a reader of so much may have to try again.
  EXPECT_TRUE(waitFor([] { return [clipboardText() length] == 1000000u; }));
}

TEST_F(CopyLink, ARefusalEmptiesTheClipboardAndReturnsTheMessage) {
  const CapturedLog log;
  EXPECT_EQ(text([controller pasteToClipboard:refusal(1, @"not allowed")]), "not allowed");
  EXPECT_EQ(clipboardText(), nil);
  EXPECT_EQ(log.lines(), Lines());
}

TEST_F(CopyLink, NoReplyEmptiesTheClipboardAndReturnsNil) {
  EXPECT_EQ([controller pasteToClipboard:nil], nil);
  EXPECT_EQ(clipboardText(), nil);
}

TEST_F(CopyLink, AnEmptyReplyEmptiesTheClipboardAndReturnsNil) {
  EXPECT_EQ([controller pasteToClipboard:@{}], nil);
  EXPECT_EQ(clipboardText(), nil);
}

TEST_F(CopyLink, AMissingErrorIsARefusal) {
  EXPECT_EQ([controller pasteToClipboard:@{@"value" : @"https://x/y"}], nil);
  EXPECT_EQ(clipboardText(), nil);
}

TEST_F(CopyLink, AnErrorOfAnotherClassIsARefusal) {
  for (id error in @[ [NSNull null], @[], @{}, [NSData data] ]) {
    EXPECT_EQ(([controller pasteToClipboard:@{@"error" : error, @"value" : @"https://x/y"}]), nil);
    EXPECT_EQ(clipboardText(), nil);
  }
}

TEST_F(CopyLink, AnErrorWrittenAsTextIsReadByItsText) {
  EXPECT_EQ(text(([controller pasteToClipboard:@{@"error" : @"0", @"value" : @"https://x/y"}])),
            "0");
  EXPECT_EQ(text(clipboardText()), "https://x/y");
}

TEST_F(CopyLink, AMessageThatIsNoStringIsNoMessage) {
  EXPECT_EQ(([controller pasteToClipboard:@{@"error" : @1, @"errorMessage" : @42}]), nil);
}

TEST_F(CopyLink, AValueThatIsNoLinkIsAFailedWriteThatIsOnlyLogged) {
  for (id reply in @[
         @{@"error" : @0}, success(@42), success([NSNull null]), success(@[ @"https://x" ]),
         success(@{})
       ]) {
    const CapturedLog log;
    EXPECT_EQ(text([controller pasteToClipboard:reply]), "0") << text(reply);
    EXPECT_EQ(log.lines(), Lines{"copy success = 0"}) << text(reply);
    EXPECT_EQ(clipboardText(), nil) << text(reply);
  }
}
