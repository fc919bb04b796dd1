#import "tests/e2e/VendedService.h"
#import "tests/e2e/WindowTest.h"
#import "tests/e2e/WireMessage.h"
#import "tests/support/Arguments.h"
#include "tests/support/HeldReply.h"
#include "tests/support/PlatformServer.h"
#include "tests/support/Strings.h"

namespace {

NSString *const kFileOperation = @"getLinkForFile:::::";

struct PluginCopy : WindowTest {
  static void copy(NSString *item, bool withProtocol = true) {
    // clang-format off
    [vendedService(withProtocol) copyLinkToClipboard:item:NO:NO];
    // clang-format on
  }

  /// Makes the call in a process of its own, so that this one can look at the screen meanwhile.
  static ChildProcess copyElsewhere(const char *item = "id-1") {
    return ChildProcess({PLUGIN_CALL, item});
  }

  static void expectThatOthersFind(const std::string &link) {
    // The second one finds an empty clipboard when the first one's end was the end of its server.
    for (int reader = 0; reader < 2; ++reader) {
      EXPECT_EQ(outputOf({CLIPBOARD_READER}), link + "\n");
    }
    EXPECT_EQ(clipboardReadByXclip(), link);
  }

  static bool isVisible() { return RunningApplication::isVisible(); }

  NSUInteger linksAskedFor() const { return callsOf(kFileOperation); }
};

}  // namespace

TEST_F(PluginCopy, TheLinkIsOnTheClipboardWhenTheCallReturns) {
  agent->answer(kFileOperation, success(@"https://brisvale.test/s/1"));
  copy(@"id-1");
  EXPECT_EQ(clipboardReadByXclip(), "https://brisvale.test/s/1");
  EXPECT_EQ(log(), (Lines{"copy success = 1", "Link copied successfully."}));
  EXPECT_FALSE(isVisible());
}

TEST_F(PluginCopy, TheLinkOutlivesTheOtherProgramsThatLookAtTheClipboard) {
  agent->answer(kFileOperation, success(@"https://brisvale.test/s/1"));
  copy(@"id-1");
  expectThatOthersFind("https://brisvale.test/s/1");
}

TEST_F(PluginCopy, WhenTheClipboardsServerWasKilledTheNextLinkHasAnotherOne) {
  agent->answer(kFileOperation, success(@"https://brisvale.test/s/1"));
  copy(@"id-1");
  PlatformServer("gpbs").kill();
  agent->answer(kFileOperation, success(@"https://brisvale.test/s/2"));
  copy(@"id-1");
  expectThatOthersFind("https://brisvale.test/s/2");
}

TEST_F(PluginCopy, LinksInAnyScriptAreReadBackByAnotherProgram) {
  for (NSString *link in
       @[ @"https://例え.jp/漢字/é", @"https://x/😀", @"https://x/رابط", @"two\nlines" ]) {
    agent->answer(kFileOperation, success(link));
    copy(@"id-1");
    EXPECT_EQ(clipboardReadByXclip(), text(link));
  }
}

TEST_F(PluginCopy, AClientThatSetsNoProtocolIsServedToo) {
  agent->answer(kFileOperation, success(@"https://x/plain"));
  copy(@"id-1", false);
  EXPECT_EQ(clipboardReadByXclip(), "https://x/plain");
}

TEST_F(PluginCopy, IdsInAnyScriptReachTheAgentAsTheyAre) {
  agent->answer(kFileOperation, success(@"https://x/y"));
  NSString *const odd = @"id 漢😀\n%@%n\"\\";
  copy(odd);
  EXPECT_EQ(text([argumentsOf(kFileOperation) objectAtIndex:link_operation::kPathOrId]), text(odd));
}

TEST_F(PluginCopy, ARefusalIsOnTheScreenUntilItIsDismissedAndTheCallWaits) {
  agent->answer(kFileOperation, refusal(1, @"quota"));
  ChildProcess call = copyElsewhere();
  ASSERT_TRUE(waitFor([&] { return isVisible(); }));
  EXPECT_EQ(log(), Lines{"Unable to copy link at this time"});
  EXPECT_FALSE(call.hasEnded());
  ASSERT_TRUE(clickIntoAlert());
  pressReturn();
  EXPECT_EQ(call.waitForEnd(), 0) << call.output();
  EXPECT_TRUE(waitFor([&] { return !isVisible(); }));
  EXPECT_EQ(clipboardReadByXclip(), "");
}

TEST_F(PluginCopy, AnAgentKilledDuringTheCallIsReportedAndTheApplicationGoesOn) {
  const HeldReply hold;
  agent->setScript(@{kFileOperation : hold.entry(@{@"reply" : success(@"never")})});
  ChildProcess call = copyElsewhere();
  ASSERT_TRUE(waitFor([&] { return linksAskedFor() == 1; }));
  endAgent();
  ASSERT_TRUE(waitFor([&] { return isVisible(); }));
  EXPECT_EQ(log(), Lines{kNoReplyLine});
  ASSERT_TRUE(clickIntoAlert());
  pressReturn();
  EXPECT_EQ(call.waitForEnd(), 0) << call.output();
  startAgent();
  agent->answer(kFileOperation, success(@"https://x/again"));
  copy(@"id-1");
  EXPECT_EQ(clipboardReadByXclip(), "https://x/again");
}

TEST_F(PluginCopy, ASecondCallWaitsWhileTheAgentIsAskedForTheFirst) {
  const HeldReply hold;
  agent->setScript(@{
    kFileOperation : @[
      hold.entry(@{@"reply" : success(@"https://x/first")}),
      @{@"reply" : success(@"https://x/second")}
    ]
  });
  ChildProcess first = copyElsewhere("id-1");
  ASSERT_TRUE(waitFor([&] { return linksAskedFor() == 1; }));
  ChildProcess second = copyElsewhere("id-2");
  ASSERT_TRUE(second.waitForOutput("calling"));
  hold.release();
  EXPECT_EQ(first.waitForEnd(), 0) << first.output();
  EXPECT_EQ(second.waitForEnd(), 0) << second.output();
  EXPECT_EQ(clipboardReadByXclip(), "https://x/second");
  // One after the other: had the second been served inside the first, the first would have written
  // to the clipboard last.
  EXPECT_EQ(linesInLog("Link copied successfully."), 2);
}

TEST_F(PluginCopy, ASecondCallWaitsWhileAnAlertIsOnTheScreen) {
  agent->setScript(@{kFileOperation : @[ @{@"nil" : @1}, @{@"reply" : success(@"https://x/2")} ]});
  ChildProcess first = copyElsewhere();
  ASSERT_TRUE(waitFor([&] { return isVisible(); }));
  ChildProcess second = copyElsewhere();
  EXPECT_TRUE(second.waitForOutput("calling"));
  // Nothing must happen, so there is no condition to wait for: look often, for many times as long
  // as a served call takes.
  for (int look = 0; look < 300; ++look) {
    ASSERT_EQ(linksAskedFor(), 1u);
    ASSERT_FALSE(second.hasEnded());
    detail::pausePolling();
  }
  EXPECT_TRUE(isVisible());
  ASSERT_TRUE(clickIntoAlert());
  pressReturn();
  EXPECT_EQ(first.waitForEnd(), 0) << first.output();
  EXPECT_EQ(second.waitForEnd(), 0) << second.output();
  EXPECT_EQ(linksAskedFor(), 2u);
}

TEST_F(PluginCopy, AClientThatDiesDuringItsCallDoesNoHarm) {
  const HeldReply hold;
  agent->setScript(@{
    kFileOperation : @[
      hold.entry(@{@"reply" : success(@"https://x/1")}), @{@"reply" : success(@"https://x/2")}
    ]
  });
  {
    ChildProcess client = copyElsewhere();
    ASSERT_TRUE(waitFor([&] { return linksAskedFor() == 1; }));
  }
  hold.release();
  copy(@"id-2");
  EXPECT_EQ(clipboardReadByXclip(), "https://x/2");
  EXPECT_FALSE(application.process().hasEnded());
}

TEST_F(PluginCopy, AStrangerCanSendNothingButTheOperations) {
  agent->answer(kFileOperation, success(@"https://x/y"));
  id const stranger = vendedService(false);
  const std::string refused = text(NSInvalidArgumentException);
  EXPECT_EQ(sendOverWire(stranger, @selector(valueForKey:), "@@:@", @"flag"), refused);
  EXPECT_EQ(sendOverWire(stranger, @selector(dealloc), "v@:"), refused);
  EXPECT_EQ(sendOverWire(stranger, @selector(release), "v@:"), refused);
  EXPECT_EQ(sendOverWire(stranger, @selector(autorelease), "@@:"), refused);
  EXPECT_EQ(sendOverWire(stranger, @selector(copy), "@@:"), refused);
  EXPECT_EQ(sendOverWire(stranger, @selector(description), "@@:"), refused);
  EXPECT_EQ(sendOverWire(stranger, @selector(terminate:), "v@:@", nil), refused);
  copy(@"id-1");
  EXPECT_EQ(clipboardReadByXclip(), "https://x/y");
  EXPECT_FALSE(application.process().hasEnded());
}

TEST_F(PluginCopy, AStrangerCannotReleaseTheSignatureThatItIsHanded) {
  agent->answer(kFileOperation, success(@"https://x/y"));
  id const stranger = vendedService(false);
  NSInvocation *const question = [NSInvocation
      invocationWithMethodSignature:[NSMethodSignature signatureWithObjCTypes:"@@::"]];
  SEL asked = @selector(copyLinkToClipboard:::);
  [question setTarget:stranger];
  [question setSelector:@selector(methodSignatureForSelector:)];
  [question setArgument:&asked atIndex:2];
  [stranger forwardInvocation:question];
  id signature = nil;
  [question getReturnValue:&signature];
  ASSERT_TRUE([signature isProxy]);
  for (int i = 0; i < 20; ++i) EXPECT_NE(sendOverWire(signature, @selector(release), "v@:"), "");
  copy(@"id-1", false);
  EXPECT_EQ(clipboardReadByXclip(), "https://x/y");
  EXPECT_FALSE(application.process().hasEnded());
}
