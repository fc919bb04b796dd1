#import "tests/support/Arguments.h"
#include "tests/support/HeldReply.h"
#include "tests/support/RepeatingTimer.h"
#include "tests/support/TypeAheadUser.h"
#import "tests/ui/WindowFixtures.h"
#import "text/LocalizedText.h"

namespace {

NSString *const kFileOperation = @"getLinkForFile:::::";

struct CopyLinkTab : Windows {
  NSWindow *window = nil;

  /// Opens the window on the tab and presses its button.
  void open(const SendOptions &options = {}) { window = [openSend(1, options) window]; }
  void pressCopy() {
    [button(window, @"Copy Link") performClick:nil];
    handlePostedEvents();
  }

  void choose(NSString *downloads) {
    NSPopUpButton *const numbers = popUp();
    [[numbers menu] performActionForItemAtIndex:[numbers indexOfItemWithTitle:downloads]];
  }
  bool isAsked() const { return [agent.operations() containsObject:kFileOperation]; }
  NSPopUpButton *popUp() { return static_cast<NSPopUpButton *>(button(window, @"Unlimited")); }
  NSProgressIndicator *spinner() {
    for (NSView *view in [[popUp() superview] subviews]) {
      if ([view isKindOfClass:[NSProgressIndicator class]]) {
        return static_cast<NSProgressIndicator *>(view);
      }
    }
    return nil;
  }

  std::vector<std::string> alert() {
    return [window attachedSheet] == nil ? std::vector<std::string>{}
                                         : textsIn([window attachedSheet]);
  }
  bool alertShows(const std::string &wanted) {
    const auto texts = alert();
    return std::find(texts.begin(), texts.end(), wanted) != texts.end();
  }
};

/// A folder of this test, and a file in it.
NSString *temporaryFolder() {
  return [NSString stringWithUTF8String:newTemporaryFolder().c_str()];
}

}  // namespace

TEST_F(CopyLinkTab, TheNumberOfDownloadsStartsAtTheFirstItem) {
  open();
  EXPECT_EQ([popUp() indexOfSelectedItem], 0);
  EXPECT_TRUE(
      ([[popUp() itemTitles] isEqual:@[ @"Unlimited", @"1", @"5", @"10", @"25", @"50", @"100" ]]));
}

TEST_F(CopyLinkTab, UnlimitedDownloadsReachTheAgentAsMinusOne) {
  agent.answer(kFileOperation, success(@"https://x/y"));
  open();
  pressCopy();
  EXPECT_TRUE(([lastArguments() isEqual:@[ @"id-1", @0, @0, @"-1", @1 ]])) << text(lastArguments());
}

TEST_F(CopyLinkTab, AnyOtherNumberReachesTheAgentAsItsTitle) {
  agent.answer(kFileOperation, refusal(1, @"no"));
  for (NSString *title in @[ @"1", @"5", @"100" ]) {
    open();
    choose(title);
    pressCopy();
    EXPECT_EQ(text([lastArguments() objectAtIndex:link_operation::kMaxDownloads]), text(title));
  }
}

TEST_F(CopyLinkTab, BothOptionsReachTheAgent) {
  agent.answer(kFileOperation, refusal(1, @"no"));
  open();
  [button(window, @"Notify me of each download") performClick:nil];
  pressCopy();
  EXPECT_TRUE(([lastArguments() isEqual:@[ @"id-1", @1, @0, @"-1", @1 ]]));
  open();
  [button(window, @"Ask for an e-mail address first") performClick:nil];
  pressCopy();
  EXPECT_TRUE(([lastArguments() isEqual:@[ @"id-1", @0, @1, @"-1", @1 ]]));
}

TEST_F(CopyLinkTab, ASuccessPutsTheLinkOnTheClipboardAndClosesTheWindowAfterThreeSeconds) {
  agent.answer(kFileOperation, success(@"https://x/y"));
  open();
  const double pressed = detail::secondsNow();
  pressCopy();
  EXPECT_EQ(text(clipboardText()), "https://x/y");
  EXPECT_EQ([[[NSPasteboard generalPasteboard] types] count], 1u);
  EXPECT_TRUE(alertShows("The link is on the clipboard."));
  EXPECT_TRUE(handleEventsUntil([] { return visibleWindows().empty(); }));
  EXPECT_GE(detail::secondsNow() - pressed, 2.99);
  EXPECT_EQ(log.lines(), withActivations({"copy success = 1", "window closed"}));
  EXPECT_TRUE([delegate contextMenuFlag]);
}

TEST_F(CopyLinkTab, ARefusalEmptiesTheClipboardAndIsShownAndLeavesTheOptions) {
  agent.answer(kFileOperation, refusal(1, @"quota"));
  open();
  choose(@"5");
  NSButton *const notify = button(window, @"Notify me of each download");
  [notify performClick:nil];
  pressCopy();
  EXPECT_EQ(clipboardText(), nil);
  EXPECT_TRUE(alertShows("The link could not be copied."));
  EXPECT_FALSE(alertShows("quota"));
  EXPECT_EQ(log.lines(), withActivations({}));
  [button([window attachedSheet], @"OK") performClick:nil];
  handlePostedEvents();
  EXPECT_EQ([window attachedSheet], nil);
  EXPECT_TRUE([window isVisible]);
  EXPECT_EQ([notify state], NSOnState);
  EXPECT_NE(button(window, @"5"), nil);
}

TEST_F(CopyLinkTab, AnEmptyReplyIsTheCannotConnectAlert) {
  open();
  pressCopy();
  EXPECT_TRUE(alertShows("Brisvale cannot be reached."));
  EXPECT_EQ(clipboardText(), nil);
  EXPECT_EQ(log.lines(), withActivations({}));
}

TEST_F(CopyLinkTab, NoReplyAtAllIsTheCannotConnectAlertAndALaterTrySucceeds) {
  agent.setScript(@{kFileOperation : @[ @{@"nil" : @1}, @{@"reply" : success(@"https://x/2")} ]});
  open();
  pressCopy();
  EXPECT_TRUE(alertShows("Brisvale cannot be reached."));
  [button([window attachedSheet], @"OK") performClick:nil];
  handlePostedEvents();
  pressCopy();
  EXPECT_EQ(text(clipboardText()), "https://x/2");
}

TEST_F(CopyLinkTab, ASecondClickBehindTheAlertDoesNothing) {
  agent.answer(kFileOperation, refusal(1, @"no"));
  open();
  postClick(button(window, @"Copy Link"));
  postClick(button(window, @"Copy Link"));
  EXPECT_TRUE(handleEventsUntil([&] { return [window attachedSheet] != nil; }));
  handlePostedEvents();
  NSCountedSet *const asked = [[[NSCountedSet alloc] initWithArray:agent.operations()] autorelease];
  EXPECT_EQ([asked countForObject:kFileOperation], 1u);
}

TEST_F(CopyLinkTab, KeysAndClicksOfTheWaitingTimeDoNotDismissTheAlertUnread) {
  const HeldReply hold;
  agent.setScript(@{kFileOperation : hold.entry(@{@"reply" : refusal(1, @"no")})});
  open();
  const TypeAheadUser user(
      window, @"\r\r\r", [&] { return isAsked(); }, [&] { hold.release(); });
  postClick(button(window, @"Copy Link"));
  postClick(button(window, @"Copy Link"));
  EXPECT_TRUE(handleEventsUntil([&] { return [window attachedSheet] != nil; }));
  handlePostedEvents();
  EXPECT_TRUE(user.hasTyped());
  EXPECT_TRUE(alertShows("The link could not be copied."));
}

TEST_F(CopyLinkTab, AFolderOnDiskIsAFolderWhateverTheOpenerSaid) {
  NSString *const folder = temporaryFolder();
  open({.item = folder, .isFolder = NO, .isFileId = NO});
  pressCopy();
  EXPECT_EQ(text([agent.operations() lastObject]), "getLinkForFolder:::::");
  EXPECT_EQ(log.lines(), withActivations({"is folder"}));
  EXPECT_TRUE(([lastArguments() isEqual:@[ folder, @0, @0, @"-1", @0 ]])) << text(lastArguments());
}

TEST_F(CopyLinkTab, AFileOnDiskIsAFileWhateverTheOpenerSaid) {
  NSString *const file = [temporaryFolder() stringByAppendingPathComponent:@"f"];
  [@"x" writeToFile:file atomically:NO encoding:NSUTF8StringEncoding error:NULL];
  open({.item = file, .isFolder = YES, .isFileId = NO});
  pressCopy();
  EXPECT_EQ(text([agent.operations() lastObject]), "getLinkForFile:::::");
  EXPECT_EQ(log.lines(), withActivations({}));
}

TEST_F(CopyLinkTab, AMissingItemIsAskedForAsAFile) {
  open({.item = @"/nowhere/at/all", .isFolder = YES, .isFileId = NO});
  pressCopy();
  EXPECT_EQ(text([agent.operations() lastObject]), "getLinkForFile:::::");
}

TEST_F(CopyLinkTab, ForAServerIdTheOpenersKindDecides) {
  open({.item = @"/tmp", .isFolder = NO, .isFileId = YES});
  pressCopy();
  EXPECT_EQ(text([agent.operations() lastObject]), "getLinkForFile:::::");
  open({.item = @"id", .isFolder = YES, .isFileId = YES});
  pressCopy();
  EXPECT_EQ(text([agent.operations() lastObject]), "getLinkForFolder:::::");
}

TEST_F(CopyLinkTab, AMixedCheckBoxIsNotChecked) {
  CopyLinkController *const controller = [[[CopyLinkController alloc] init] autorelease];
  NSButton *const box = [[[NSButton alloc] initWithFrame:NSMakeRect(0, 0, 100, 20)] autorelease];
  [box setButtonType:NSSwitchButton];
  [box setAllowsMixedState:YES];
  [box setState:NSMixedState];
  EXPECT_FALSE([controller checkBoxState:box]);
  [box setState:NSOffState];
  EXPECT_FALSE([controller checkBoxState:box]);
  [box setState:NSOnState];
  EXPECT_TRUE([controller checkBoxState:box]);
  EXPECT_FALSE([controller checkBoxState:nil]);
}

TEST_F(CopyLinkTab, TheSpinnerIsHiddenBeforeAndAfter) {
  agent.answer(kFileOperation, refusal(1, @"no"));
  open();
  NSProgressIndicator *const indicator = spinner();
  ASSERT_NE(indicator, nil);
  EXPECT_TRUE([indicator isHidden]);
  pressCopy();
  EXPECT_TRUE([indicator isHidden]);
}

TEST_F(CopyLinkTab, TheSpinnerTurnsWhileTheAgentIsAsked) {
  const HeldReply hold;
  agent.setScript(@{kFileOperation : hold.entry(@{@"reply" : refusal(1, @"no")})});
  open();
  NSProgressIndicator *const indicator = spinner();
  bool turned = false;
  const RepeatingTimer look(NSConnectionReplyMode, [&] {
    if (!isAsked()) return;
    turned |= ![indicator isHidden] && [[indicator valueForKey:@"isRunning"] boolValue];
    hold.release();
  });
  pressCopy();
  EXPECT_TRUE(turned);
}

TEST_F(CopyLinkTab, ARefusalSaysWhatCanBeDone) {
  agent.answer(kFileOperation, refusal(1, @"no"));
  open();
  pressCopy();
  EXPECT_TRUE(alertShows(text(localizedText(@"unableCopyLinkInformativeKey"))));
}

TEST_F(CopyLinkTab, AwakingChoosesTheFirstNumberWhateverTheInterfaceFileHas) {
  CopyLinkController *const controller = [openSend(1) sendCopyFile];
  window = [controller ourMainWindow];
  NSPopUpButton *const numbers = popUp();
  [numbers selectItemAtIndex:3];
  [controller awakeFromNib];
  EXPECT_EQ([numbers indexOfSelectedItem], 0);
}

TEST_F(CopyLinkTab, ReturnPressesCopyLink) {
  agent.answer(kFileOperation, success(@"https://x/by-key"));
  open();
  postKeys(window, @"\r");
  EXPECT_TRUE(handleEventsUntil([] { return clipboardText() != nil; }));
  handlePostedEvents();
  EXPECT_EQ(text(clipboardText()), "https://x/by-key");
}
