#include "tests/support/PlatformServer.h"
#import "tests/ui/CallDuringAction.h"
#import "tests/ui/InviteTabFixture.h"
#import "tests/ui/PermissionsTab.h"

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
  [button(window, @"Copy Link") performClick:nil];
  EXPECT_FALSE(client.hasEnded());
  EXPECT_TRUE([window isVisible]);
  EXPECT_EQ(log.lines(), withActivations({"copy success = 1"}));
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
