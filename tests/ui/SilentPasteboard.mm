#include <signal.h>

#include "tests/support/PlatformServer.h"
#import "tests/ui/WindowFixtures.h"

// The pasteboard's server is stopped, or waits for a program that is.

namespace {

NSString *const kFileOperation = @"getLinkForFile:::::";

/// Half a minute would be too long for a user, but the limit exceeds the few seconds that it takes,
/// so that the test passes on a busy machine.
constexpr NSTimeInterval kBoundSeconds = 30;

struct SilentPasteboard : Windows {
  PlatformServer server{"gpbs"};
  NSWindow *window = nil;

  SilentPasteboard() { agent.answer(kFileOperation, success(@"https://x/y")); }

  void openCopyTab() { window = [openSend(1) window]; }
  void pressCopy() {
    [button(window, @"Copy Link") performClick:nil];
    handlePostedEvents();
  }
  void copyDirectly() {
    // clang-format off
    [proxy copyLinkToClipboard:@"id-1":NO:NO];
    // clang-format on
  }
  NSProgressIndicator *spinner() {
    for (NSView *view in [[button(window, @"Copy Link") superview] subviews]) {
      if ([view isKindOfClass:[NSProgressIndicator class]]) {
        return static_cast<NSProgressIndicator *>(view);
      }
    }
    return nil;
  }
  NSUInteger linksAskedFor() {
    NSCountedSet *const asked =
        [[[NSCountedSet alloc] initWithArray:agent.operations()] autorelease];
    return [asked countForObject:kFileOperation];
  }
};

}  // namespace

TEST_F(SilentPasteboard, ACopyInTheWindowIsAFailedWriteThatIsOnlyLogged) {
  openCopyTab();
  server.stop();
  pressCopy();
  EXPECT_EQ(log.lines(), withActivations({"copy success = 0"}));
  EXPECT_TRUE([spinner() isHidden]);
  EXPECT_NE([window attachedSheet], nil);
  EXPECT_TRUE(handleEventsUntil([] { return visibleWindows().empty(); }));
  EXPECT_TRUE([delegate contextMenuFlag]);
  EXPECT_EQ(linksAskedFor(), 1u);
}

TEST_F(SilentPasteboard, ADirectCopyIsAFailedWriteThatIsOnlyLogged) {
  server.stop();
  copyDirectly();
  EXPECT_EQ(log.lines(), withActivations({"copy success = 0", "Link copied successfully."}));
  EXPECT_TRUE([delegate contextMenuFlag]);
}

TEST_F(SilentPasteboard, ARefusalIsShownAllTheSame) {
  agent.answer(kFileOperation, refusal(1, @"no"));
  openCopyTab();
  server.stop();
  pressCopy();
  const auto texts = textsIn([window attachedSheet]);
  EXPECT_NE(std::find(texts.begin(), texts.end(), "The link could not be copied."), texts.end());
  EXPECT_TRUE([spinner() isHidden]);
}

TEST_F(SilentPasteboard, ACopyTakesSecondsAndNotForEver) {
  server.stop();
  NSDate *const begun = [NSDate date];
  copyDirectly();
  EXPECT_LT(-[begun timeIntervalSinceNow], kBoundSeconds);
  EXPECT_EQ(log.lines(), withActivations({"copy success = 0", "Link copied successfully."}));
}

TEST_F(SilentPasteboard, TheNextCopyWorksWhenTheServerGoesOn) {
  server.stop();
  copyDirectly();
  server.resume();
  agent.answer(kFileOperation, success(@"https://x/2"));
  copyDirectly();
  EXPECT_EQ(log.lines(), withActivations({"copy success = 0", "Link copied successfully.",
                                          "copy success = 1", "Link copied successfully."}));
  EXPECT_EQ(text(clipboardText()), "https://x/2");
}

TEST_F(SilentPasteboard, WhatWasOnTheClipboardIsGoneWhenTheServerGoesOn) {
  server.stop();
  copyDirectly();
  server.resume();
  EXPECT_TRUE(waitFor([] { return clipboardText() == nil; }));
}

TEST_F(SilentPasteboard, AServerThatWasKilledIsReplacedByTheQuestionThatFindsItGone) {
  CopyLinkController *const controller = [[[CopyLinkController alloc] init] autorelease];
  server.kill();
  EXPECT_EQ(text([controller pasteToClipboard:success(@"https://x/y")]), "0");
  // The platform logs the end of its connection, too.
  EXPECT_EQ(linesInLog("copy success = 1"), 1);
  EXPECT_EQ(text(clipboardText()), "https://x/y");
}

TEST_F(SilentPasteboard, AnOwnerOfTheClipboardThatHangsStopsNoCopy) {
  const ChildProcess owner({CLIPBOARD_OWNER});
  ASSERT_TRUE(owner.waitForOutput("owns"));
  owner.signal(SIGSTOP);
  openCopyTab();
  pressCopy();
  EXPECT_EQ(log.lines(), withActivations({"copy success = 1"}));
  EXPECT_EQ(text(clipboardText()), "https://x/y");
}

TEST_F(SilentPasteboard, AnswersNothingAndRaisesNothing) {
  NSPasteboard *const general = [NSPasteboard generalPasteboard];
  server.stop();
  EXPECT_EQ([general types], nil);
  EXPECT_EQ([general stringForType:NSStringPboardType], nil);
  EXPECT_EQ([general changeCount], 0);
  EXPECT_EQ([general availableTypeFromArray:@[ NSStringPboardType ]], nil);
  EXPECT_EQ([general declareTypes:@[ NSStringPboardType ] owner:nil], 0);
  EXPECT_FALSE([general setString:@"x" forType:NSStringPboardType]);
  EXPECT_FALSE([general writeObjects:@[ @"x" ]]);
  EXPECT_NE([NSPasteboard generalPasteboard], nil);
  EXPECT_NE([NSPasteboard pasteboardWithUniqueName], nil);
}

TEST_F(SilentPasteboard, WhatCannotBeCutStaysInTheText) {
  openCopyTab();
  NSTextView *const editor =
      [[[NSTextView alloc] initWithFrame:NSMakeRect(0, 0, 100, 20)] autorelease];
  [[window contentView] addSubview:editor];
  [editor setString:@"kept"];
  [editor selectAll:nil];
  server.stop();
  [editor cut:nil];
  EXPECT_EQ(text([editor string]), "kept");
  [editor copy:nil];
  [editor paste:nil];
  EXPECT_EQ(text([editor string]), "kept");
  server.resume();
  [editor selectAll:nil];
  [editor cut:nil];
  EXPECT_EQ(text([editor string]), "");
  EXPECT_EQ(text(clipboardText()), "kept");
}

TEST_F(SilentPasteboard, ValidationOfPasteAsksASilentServerOnce) {
  openCopyTab();
  NSTextView *const editor =
      [[[NSTextView alloc] initWithFrame:NSMakeRect(0, 0, 100, 20)] autorelease];
  NSMenuItem *const paste = [[[NSMenuItem alloc] initWithTitle:@"Paste"
                                                        action:@selector(paste:)
                                                 keyEquivalent:@""] autorelease];
  server.stop();
  NSDate *const begun = [NSDate date];
  for (int event = 0; event < 100; ++event) [editor validateMenuItem:paste];
  EXPECT_LT(-[begun timeIntervalSinceNow], kBoundSeconds);
  EXPECT_TRUE([editor validateMenuItem:paste]);
}
