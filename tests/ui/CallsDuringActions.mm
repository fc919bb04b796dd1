#include "tests/support/PlatformServer.h"
#import "tests/ui/CallDuringAction.h"
#import "tests/ui/InviteTabFixture.h"
#import "tests/ui/MenuActions.h"
#import "tests/ui/PermissionsTab.h"
#import "windows/RequestSuspension.h"

// The default mode runs inside each of these actions while a call of the plug-in waits that would
// close the action's window.

namespace {

struct CallDuringTheSendWindow : Windows {
  /// Presses the button, with the agent's reply to the operation held.
  void press(NSString *title, CallDuringAction &call, NSString *operation) {
    agent.setScript(@{operation : call.held(@{@"reply" : success(@"https://x/first")})});
    [button(window, title) performClick:nil];
  }

  NSWindow *window = nil;
};

struct CallDuringAChangeOfAccess : PermissionsTab {
  void openWithThree() {
    answerList(people(3));
    openLoaded();
  }

  void expectThatItHasWaited(CallDuringAction &call) {
    EXPECT_TRUE(call.hasWaited());
    EXPECT_TRUE([[window window] isVisible]);
    // The call closes the window, which deallocates its controller.
    window = nil;
    EXPECT_TRUE(call.isServed());
    // The window of the call, which the next test would find open.
    WindowsWithoutAgent::closeWindows();
  }
};

}  // namespace

TEST_F(CallDuringTheSendWindow, WaitsForTheCopyingOfALink) {
  window = [openSend(1) window];
  CallDuringAction call;
  press(@"Copy Link", call, @"getLinkForFile:::::");
  EXPECT_TRUE(call.hasWaited());
  EXPECT_TRUE([window isVisible]);
  EXPECT_EQ(text(clipboardText()), "https://x/first");
  EXPECT_TRUE(call.isServed());
}

TEST_F(CallDuringTheSendWindow, WaitsWhileTheClipboardsServerIsStartedAgain) {
  window = [openSend(1) window];
  ChildProcess client(callThatOpensAnotherWindow());
  ASSERT_TRUE(client.waitForOutput("calling"));
  agent.setScript(
      @{@"getLinkForFile:::::" : @{@"delay" : @0.5, @"reply" : success(@"https://x/first")}});
  PlatformServer("gpbs").kill();
  const CapturedLog copying;
  const ActivationsInLog activations(copying);
  [button(window, @"Copy Link") performClick:nil];
  EXPECT_FALSE(client.hasEnded());
  EXPECT_TRUE([window isVisible]);
  EXPECT_EQ(copying.lines(), activations.with({"copy success = 1"}));
  EXPECT_EQ(text(clipboardText()), "https://x/first");
  EXPECT_TRUE(handleEventsUntil([&] { return client.hasEnded(); }));
}

TEST_F(CallDuringTheSendWindow, WaitsForTheSendingOfAMail) {
  SendAndCopyTabController *const controller = openSend(0);
  window = [controller window];
  for (NSView *view in [[[[controller sendAndCopyTab] tabViewItemAtIndex:0] view] subviews]) {
    if (![view isKindOfClass:[NSTokenField class]]) continue;
    [static_cast<NSTokenField *>(view) setStringValue:@"a@example.org"];
  }
  CallDuringAction call;
  press(@"Send", call, @"sendFile:::::::::");
  EXPECT_TRUE(call.hasWaited());
  EXPECT_TRUE([window isVisible]);
  EXPECT_NE([window attachedSheet], nil);
  EXPECT_TRUE(call.isServed());
}

using CallDuringAnInvitation = InviteTabFixture;

TEST_F(CallDuringAnInvitation, WaitsForTheGrantAndTheListThatIsReadAgain) {
  knowColleagues(@[ @"a@x.de" ]);
  open();
  [recipients() setStringValue:@"a@x.de"];
  CallDuringAction call;
  grants(call.held(granted()));
  [button(window, @"Invite") performClick:nil];
  EXPECT_TRUE(call.hasWaited());
  EXPECT_TRUE([window isVisible]);
  EXPECT_NE([window attachedSheet], nil);
  EXPECT_TRUE(call.isServed());
}

TEST_F(CallDuringAChangeOfAccess, WaitsForTheChange) {
  openWithThree();
  CallDuringAction call;
  answer(people(3), kGrant, call.held(granted()));
  choose(0, @"accessPermissionReadOnlyKey");
  expectThatItHasWaited(call);
}

TEST_F(CallDuringAChangeOfAccess, WaitsForTheRemoval) {
  openWithThree();
  CallDuringAction call;
  answer(people(3), @"revokeAccess:::", call.held(@{@"reply" : success(@"done")}));
  [tab handleResult:nil withResult:NSAlertFirstButtonReturn withSender:nullptr];
  EXPECT_EQ([[tab personList] count], 2u);
  expectThatItHasWaited(call);
}

TEST_F(CallDuringAChangeOfAccess, WaitsForTheListThatAnInvitationReadsAgain) {
  openWithThree();
  CallDuringAction call;
  agent.setScript(@{@"getAccess::" : call.held(@{@"reply" : success(people(2))})});
  [tab listenNotification:nil];
  EXPECT_EQ([[tab personList] count], 2u);
  expectThatItHasWaited(call);
}

namespace {

/// The default mode runs while the file manager is asked for the selection.
struct CallDuringTheMenu : MenuActions {
  void select(NSString *path) {
    MenuActions::select(path);
    knowFile(path, "id");
    knowFolder(path, "id");
  }

  /// The window of the action is the only one, until the call is served.
  void expectThatItHasWaited(CallDuringAction &call, const std::string &title) {
    EXPECT_TRUE(call.hasWaited());
    EXPECT_EQ(text([onlyWindow() title]), title);
    EXPECT_TRUE(call.isServed());
    EXPECT_EQ(text([onlyWindow() title]), "Another.txt");
  }
};

/// The default mode runs while the agent is asked.
struct CallDuringACall : Windows {
  void hold(CallDuringAction &call, NSString *operation) {
    agent.setScript(@{operation : call.held(@{@"reply" : success(@"https://x/first")})});
  }

  void expectThatItHasWaited(CallDuringAction &call) {
    EXPECT_TRUE(call.hasWaited());
    EXPECT_EQ(visibleWindows().size(), 1u);
    EXPECT_TRUE(call.isServed());
  }
};

NSString *const kBook = @"getEmployeeAddressBook";

}  // namespace

TEST_F(CallDuringTheMenu, WaitsForTheCopyingOfALink) {
  select(makeFile(@"figures.csv"));
  agent.answer(@"getLinkForFile:::::", success(@"https://x/file"));
  CallDuringAction call;
  [delegate CopyLink:nil];
  EXPECT_EQ(text(clipboardText()), "https://x/file");
  expectThatItHasWaited(call, "(nil)");
}

TEST_F(CallDuringTheMenu, WaitsForTheSelectionOfAFileToSend) {
  select(makeFile(@"figures.csv"));
  CallDuringAction call;
  [delegate SendFile:nil];
  expectThatItHasWaited(call, "figures.csv");
}

TEST_F(CallDuringTheMenu, WaitsForTheSelectionOfAFolderToSend) {
  select(makeFolder(@"Plans"));
  CallDuringAction call;
  [delegate SendFolder:nil];
  expectThatItHasWaited(call, "Plans");
}

TEST_F(CallDuringTheMenu, WaitsForTheSelectionOfAFolderToShare) {
  select(makeFolder(@"MyDocs/Plans"));
  CallDuringAction call;
  [delegate ShareFolder:nil];
  expectThatItHasWaited(call, "Plans");
}

TEST_F(CallDuringACall, WaitsForTheOpeningOfTheSendWindow) {
  CallDuringAction call;
  hold(call, kBook);
  EXPECT_NE(openSend(), nil);
  expectThatItHasWaited(call);
}

TEST_F(CallDuringACall, WaitsForTheOpeningOfTheShareWindow) {
  CallDuringAction call;
  hold(call, kBook);
  // Events are handled only after the check.
  // clang-format off
  [proxy LaunchShareFolderTab:@"id-2":@"":NO:NO:YES];
  // clang-format on
  expectThatItHasWaited(call);
}

TEST_F(CallDuringACall, WaitsForADirectCopy) {
  CallDuringAction call;
  hold(call, @"getLinkForFile:::::");
  // clang-format off
  [proxy copyLinkToClipboard:@"id-1":NO:NO];
  // clang-format on
  EXPECT_TRUE(call.hasWaited());
  EXPECT_EQ(text(clipboardText()), "https://x/first");
  EXPECT_TRUE(call.isServed());
}

/// Replies to its own requests, and the platform's messages to the application, arrive there.
TEST(SuspendedRequests, AreNotThoseOfTheConnectionThatTheApplicationAsksOn) {
  NSConnection *const own = [NSConnection defaultConnection];
  withRequestsSuspended(
      [&] { EXPECT_TRUE([[own requestModes] containsObject:NSDefaultRunLoopMode]); });
}

TEST(SuspendedRequests, AreServedOnlyWhenTheOutermostSuspensionHasEnded) {
  NSConnection *const serving = [[[NSConnection alloc] init] autorelease];
  [serving setRootObject:@"something to serve"];
  const auto isServed = [serving] {
    return [[serving requestModes] containsObject:NSDefaultRunLoopMode] != NO;
  };
  ASSERT_TRUE(isServed());
  withRequestsSuspended([&] {
    withRequestsSuspended([&] { EXPECT_FALSE(isServed()); });
    EXPECT_FALSE(isServed());
  });
  EXPECT_TRUE(isServed());
  [serving invalidate];
}
