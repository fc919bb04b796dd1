// What a user gets whose agent fails while a link is mailed.
#import "tests/faults/FaultTest.h"
#include "tests/ui/WindowFixtures.h"
#import "text/LocalizedText.h"

namespace {

NSString *const kSendFile = @"sendFile:::::::::";
NSString *const kSent = @"sent";

template <class View>
View *viewIn(NSView *view) {
  if ([view isKindOfClass:[View class]]) return static_cast<View *>(view);
  for (NSView *subview in [view subviews]) {
    if (View *const found = viewIn<View>(subview)) return found;
  }
  return nil;
}

struct Send : FaultTest<WindowsWithoutAgent> {
  SendAndCopyTabController *controller = nil;

  NSWindow *window() { return [controller window]; }
  NSView *tab() { return [[[controller sendAndCopyTab] tabViewItemAtIndex:0] view]; }
  NSTokenField *recipients() { return viewIn<NSTokenField>(tab()); }
  NSTextView *message() { return [viewIn<NSScrollView>(tab()) documentView]; }
  NSTextField *subject() { return [[controller sendFile] mailSubject]; }

  void openAndFillIn() {
    controller = openSend(0);
    [window() makeFirstResponder:recipients()];
    postKeys(window(), @"ann@x.de,bo@x.de");
    handlePostedEvents();
    [subject() setStringValue:@"Q&A"];
    [message() setString:@"two\nlines"];
    [button(window(), @"Send me a copy") setState:NSOnState];
    mark();
  }

  void send() {
    [button(window(), @"Send") performClick:nil];
    handlePostedEvents();
  }

  bool sheetShows(NSString *key) {
    const auto texts = textsIn([window() attachedSheet]);
    return std::find(texts.begin(), texts.end(), text(formatted(localizedText(key)))) !=
           texts.end();
  }

  /// The first such line since mark(); empty when there is none.
  std::string lineBeginningWith(const std::string &beginning) const {
    for (const std::string &line : logged()) {
      if (line.starts_with(beginning)) return line;
    }
    return "";
  }

  void expect(Outcome outcome) {
    ASSERT_NE([window() attachedSheet], nil);
    switch (outcome) {
      case Outcome::Succeeds:
        EXPECT_EQ(logged(), withActivations({}));
        EXPECT_TRUE(sheetShows(@"fileSentSuccessMessageTextKey"));
        break;
      case Outcome::Refused:
        EXPECT_EQ(logged(), withActivations({lineBeginningWith("Error sending:")}));
        EXPECT_TRUE(sheetShows(@"unableToSendFileMessageTextKey"));
        EXPECT_TRUE(sheetShows(@"fileNotAvailableInformativeTextKey"));
        break;
      default:
        EXPECT_EQ(logged(), withActivations({kNoReplyLine}));
        EXPECT_TRUE(sheetShows(@"cannotConnectToBrisvaleMessageTextKey"));
    }
    EXPECT_TRUE([window() isVisible]);
    EXPECT_FALSE([delegate contextMenuFlag]);
    EXPECT_EQ(text(clipboardText()), "former contents");
    EXPECT_EQ(text([recipients() stringValue]), "ann@x.de,bo@x.de");
    EXPECT_EQ(text([subject() stringValue]), "Q&A");
    EXPECT_EQ(text([message() string]), "two\nlines");
    EXPECT_EQ([button(window(), @"Send me a copy") state], NSOnState);
  }
};

}  // namespace

TEST_P(Send, TellsWhatCameOfItAndKeepsWhatWasTypedAndWorksAgain) {
  begin();
  openAndFillIn();
  agent.injectFault(kSendFile, kSent);
  send();
  agent.injectFaultAfterwards();
  expect(outcome());
  agent.recover(kSendFile, kSent);
  openAndFillIn();
  send();
  expect(Outcome::Succeeds);
  EXPECT_GE(agent.callsOf(kSendFile), 1u);
}

INSTANTIATE_TEST_SUITE_P(Row, Send, testing::ValuesIn(testedCellsOf(Column::Send)), nameOfRow);
