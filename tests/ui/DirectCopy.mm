#include <gtest/gtest.h>

#import "plugin/ContextMenuProxy.h"
#include "tests/support/AgentProcess.h"
#include "tests/support/AlertUser.h"
#import "tests/support/Arguments.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/Events.h"
#include "tests/support/HeldReply.h"
#include "tests/support/RepeatingTimer.h"
#include "tests/support/Strings.h"
#include "tests/ui/Application.h"

/// Records the notifications that tell open windows to close.
@interface OpeningObserver : NSObject {
 @public
  int posts;
  id object;
}
@end

@implementation OpeningObserver

- (id)init {
  if ((self = [super init])) {
    [[NSNotificationCenter defaultCenter] addObserver:self
                                             selector:@selector(noted:)
                                                 name:@"newInstanceofWindowOpened"
                                               object:nil];
  }
  return self;
}

- (void)dealloc {
  [[NSNotificationCenter defaultCenter] removeObserver:self];
  [super dealloc];
}

- (void)noted:(NSNotification *)notification {
  ++posts;
  object = [notification object];
}

@end

namespace {

NSString *const kFileOperation = @"getLinkForFile:::::";

constexpr const char *kRefusedLine = "Unable to copy link at this time";

struct DirectCopy : testing::Test {
  ContextMenuAppAppDelegate *delegate = loadedDelegate();
  ContextMenuProxy *proxy = [[ContextMenuProxy alloc] init];
  bool clipboardIsFilled = fillClipboard();
  CapturedLog log;
  BOOL flagWhileAlertIsOpen = YES;
  BOOL hiddenWhileAlertIsOpen = YES;
  AlertUser user{[this] {
    flagWhileAlertIsOpen = [delegate contextMenuFlag];
    hiddenWhileAlertIsOpen = ![[NSApp modalWindow] isVisible] || [NSApp isHidden];
  }};

  DirectCopy() {
    EXPECT_TRUE(clipboardIsFilled);
    [delegate setContextMenuFlag:YES];
  }
  ~DirectCopy() override { [proxy release]; }

  void copy(id item = @"id-1", BOOL isFolder = NO, BOOL unused = NO) {
    // clang-format off
    [proxy copyLinkToClipboard:item:isFolder:unused];
    // clang-format on
  }

  void expectRefusedAlert() {
    EXPECT_EQ(log.lines(), Lines{kRefusedLine});
    ASSERT_EQ(user.alerts().size(), 1u);
    EXPECT_TRUE(user.alerts()[0].shows(kRefusedLine));
    expectEndAfterAlert();
  }

  void expectNoReplyAlert() {
    EXPECT_EQ(log.lines(), Lines{kNoReplyLine});
    ASSERT_EQ(user.alerts().size(), 1u);
    EXPECT_TRUE(user.alerts()[0].shows("Cannot connect to brisvale"));
    EXPECT_TRUE(user.alerts()[0].shows("Brisvale is down or check you internet connection"));
    expectEndAfterAlert();
  }

  void expectEndAfterAlert() {
    EXPECT_FALSE(flagWhileAlertIsOpen);
    EXPECT_TRUE([delegate contextMenuFlag]);
    EXPECT_EQ(clipboardText(), nil);
    EXPECT_TRUE([NSApp isHidden]);
  }
};

}  // namespace

TEST_F(DirectCopy, PutsExactlyTheLinkOnTheClipboardAndShowsNoAlert) {
  AgentProcess agent;
  agent.answer(kFileOperation, success(@"https://x/y"));
  copy();
  EXPECT_EQ(text(clipboardText()), "https://x/y");
  EXPECT_TRUE(user.alerts().empty());
  EXPECT_EQ(log.lines(), (Lines{"copy success = 1", "Link copied successfully."}));
  EXPECT_TRUE([delegate contextMenuFlag]);
}

TEST_F(DirectCopy, AsksForUnlimitedDownloadsWithNotificationAndAlwaysByServerId) {
  AgentProcess agent;
  agent.answer(kFileOperation, success(@"https://x/y"));
  copy(@"/looks/like/a/path");
  NSArray *const arguments = [[agent.calls() objectAtIndex:0] objectForKey:@"arguments"];
  EXPECT_TRUE(([arguments isEqual:@[ @"/looks/like/a/path", @1, @0, @"-1", @1 ]]))
      << text(arguments);
}

TEST_F(DirectCopy, AsksTheFolderOperationForAFolder) {
  AgentProcess agent;
  agent.answer(@"getLinkForFolder:::::", success(@"https://x/folder"));
  copy(@"id-2", YES);
  EXPECT_EQ(text([agent.operations() objectAtIndex:0]), "getLinkForFolder:::::");
  EXPECT_EQ(text(clipboardText()), "https://x/folder");
}

TEST_F(DirectCopy, NoKeyOrClickOfTheWaitingTimeIsLeftForTheAlert) {
  AgentProcess agent;
  agent.answer(kFileOperation, refusal(1, @"no"));
  postKeys(nil, @"\r");
  postClick(nil, NSZeroPoint);
  copy();
  ASSERT_EQ(user.alerts().size(), 1u);
  EXPECT_FALSE(user.alerts()[0].foundInput);
}

TEST_F(DirectCopy, NeverReadsItsThirdArgument) {
  AgentProcess agent;
  agent.answer(kFileOperation, success(@"https://x/y"));
  copy(@"id-1", NO, YES);
  EXPECT_EQ(text([agent.operations() objectAtIndex:0]), text(kFileOperation));
}

TEST_F(DirectCopy, TellsOpenWindowsToCloseOnceAndWithoutAnObject) {
  AgentProcess agent;
  agent.answer(kFileOperation, success(@"https://x/y"));
  OpeningObserver *const observer = [[[OpeningObserver alloc] init] autorelease];
  copy();
  EXPECT_EQ(observer->posts, 1);
  EXPECT_EQ(observer->object, nil);
}

TEST_F(DirectCopy, ARefusalIsLoggedAndShownAndEndsHidden) {
  AgentProcess agent;
  agent.answer(kFileOperation, refusal(1, @"quota"));
  copy();
  expectRefusedAlert();
}

/// Its text is what pasteToClipboard: returns of a success, too.
TEST_F(DirectCopy, ARefusalWhoseMessageIsZeroIsNoCopy) {
  AgentProcess agent;
  agent.answer(kFileOperation, refusal(1, @"0"));
  copy();
  expectRefusedAlert();
}

TEST_F(DirectCopy, AnEmptyErrorIsARefusal) {
  AgentProcess agent;
  agent.answer(kFileOperation, @{@"error" : @"", @"value" : @"https://x/y"});
  copy();
  expectRefusedAlert();
}

TEST_F(DirectCopy, AReplyWithoutErrorIsARefusal) {
  AgentProcess agent;
  agent.answer(kFileOperation, @{@"value" : @"https://x/y"});
  copy();
  expectRefusedAlert();
}

TEST_F(DirectCopy, AReplyWithNullAsErrorIsARefusal) {
  AgentProcess agent;
  agent.answer(kFileOperation, @{@"error" : [NSNull null], @"value" : @"https://x/y"});
  copy();
  expectRefusedAlert();
}

TEST_F(DirectCopy, AReplyWithZeroAsTextIsASuccess) {
  AgentProcess agent;
  agent.answer(kFileOperation, @{@"error" : @"0", @"value" : @"https://x/y"});
  copy();
  EXPECT_EQ(text(clipboardText()), "https://x/y");
  EXPECT_TRUE(user.alerts().empty());
}

TEST_F(DirectCopy, AValueOfAnotherClassLeavesTheClipboardEmptyAndIsOnlyLogged) {
  AgentProcess agent;
  agent.answer(kFileOperation, success(@[ @"https://x/y" ]));
  copy();
  EXPECT_EQ(log.lines(), (Lines{"copy success = 0", "Link copied successfully."}));
  EXPECT_EQ(clipboardText(), nil);
  EXPECT_TRUE([delegate contextMenuFlag]);
}

TEST_F(DirectCopy, AHugeLinkArrivesWhole) {
  AgentProcess agent;
  agent.setScript(@{kFileOperation : @{@"linkLength" : @2000000}});
  copy();
  EXPECT_EQ(log.lines(), (Lines{"copy success = 1", "Link copied successfully."}));
  // On a busy machine a reader of so much may have to try again.
  EXPECT_TRUE(waitFor([] { return [clipboardText() length] == 2000000u; }));
}

TEST_F(DirectCopy, AnEmptyReplyIsNoReply) {
  AgentProcess agent;
  copy();
  expectNoReplyAlert();
}

TEST_F(DirectCopy, ANilReplyIsNoReply) {
  AgentProcess agent;
  agent.setScript(@{kFileOperation : @{@"nil" : @1}});
  copy();
  expectNoReplyAlert();
}

TEST_F(DirectCopy, AReplyThatIsNoDictionaryIsNoReply) {
  AgentProcess agent;
  agent.answer(kFileOperation, @[ @"error" ]);
  copy();
  expectNoReplyAlert();
}

TEST_F(DirectCopy, AnAgentKilledDuringTheCallIsNoReply) {
  AgentProcess agent;
  const HeldReply hold;
  agent.setScript(@{kFileOperation : hold.entry(@{@"reply" : success(@"never")})});
  const RepeatingTimer kill(NSConnectionReplyMode, [&] {
    if ([agent.calls() count] == 1) agent.process().signal(SIGKILL);
  });
  copy();
  EXPECT_TRUE(waitFor([&] { return agent.process().hasEnded(); }));
  expectNoReplyAlert();
}

TEST_F(DirectCopy, AnAgentThatDiesWhileItsReplyIsReadIsNoReply) {
  AgentProcess agent;
  agent.setScript(@{kFileOperation : @{@"die" : @"whenRead"}});
  copy();
  expectNoReplyAlert();
}

TEST_F(DirectCopy, AnAgentThatRaisesIsNoReply) {
  AgentProcess agent;
  agent.setScript(@{kFileOperation : @{@"raise" : @"SomeException"}});
  copy();
  expectNoReplyAlert();
}

TEST_F(DirectCopy, WithoutAnAgentThereIsNoReply) {
  copy();
  expectNoReplyAlert();
}

TEST_F(DirectCopy, AnItemThatIsNoStringIsAskedForAsNothing) {
  AgentProcess agent;
  agent.answer(kFileOperation, refusal(2, @"no such item"));
  for (id item in @[ @42, @[ @"id" ], [NSNull null] ]) copy(item);
  copy(nil);
  for (NSDictionary *call in agent.calls()) {
    EXPECT_EQ([[call objectForKey:@"arguments"] objectAtIndex:link_operation::kPathOrId],
              [NSNull null]);
  }
  EXPECT_EQ(user.alerts().size(), 4u);
  EXPECT_TRUE([delegate contextMenuFlag]);
}

TEST_F(DirectCopy, TheFlagIsSetAgainAfterAnException) {
  AgentProcess agent;
  agent.answer(kFileOperation, success(@"https://x/y"));
  const Method clipboard = class_getClassMethod([NSPasteboard class], @selector(generalPasteboard));
  const IMP former = method_setImplementation(clipboard, reinterpret_cast<IMP>(+[](id, SEL) -> id {
                                                [NSException raise:NSGenericException
                                                            format:@"no clipboard"];
                                                return nil;
                                              }));
  NSString *reason = nil;
  @try {
    copy();
  } @catch (NSException *exception) {
    reason = [exception reason];
  }
  method_setImplementation(clipboard, former);
  EXPECT_EQ(text(reason), "no clipboard");
  EXPECT_TRUE([delegate contextMenuFlag]);
}

TEST_F(DirectCopy, SucceedsAgainAfterAFailure) {
  AgentProcess agent;
  agent.setScript(@{kFileOperation : @[ @{@"nil" : @1}, @{@"reply" : success(@"https://x/2")} ]});
  copy();
  copy();
  EXPECT_EQ(text(clipboardText()), "https://x/2");
  EXPECT_EQ(user.alerts().size(), 1u);
}

TEST_F(DirectCopy, AnAlertIsOnTheScreenEvenWhenTheApplicationWasHidden) {
  AgentProcess agent;
  [delegate hideMe];
  copy();
  EXPECT_FALSE(hiddenWhileAlertIsOpen);
}
