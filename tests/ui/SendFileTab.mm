#import "tests/support/Arguments.h"
#import "tests/ui/WindowFixtures.h"
#import "text/LocalizedText.h"

namespace {

NSString *const kSendFile = @"sendFile:::::::::";
NSString *const kSendFolder = @"sendFolder:::::::::";

struct SendFileTab : Windows {
  SendAndCopyTabController *controller = nil;
  NSWindow *window = nil;

  void open(const SendOptions &options = {}) {
    controller = openSend(0, options);
    window = [controller window];
  }

  template <class View>
  View *find(Class cls, NSView *in = nil) {
    NSView *const view = in ?: [[[controller sendAndCopyTab] tabViewItemAtIndex:0] view];
    if ([view isKindOfClass:cls]) return static_cast<View *>(view);
    for (NSView *subview in [view subviews]) {
      if (View *const found = find<View>(cls, subview)) return found;
    }
    return nil;
  }
  NSTokenField *recipients() { return find<NSTokenField>([NSTokenField class]); }
  NSTextField *subject() { return [[controller sendFile] mailSubject]; }
  NSTextView *message() { return [find<NSScrollView>([NSScrollView class]) documentView]; }

  void enterRecipients(NSString *typed) {
    [window makeFirstResponder:recipients()];
    postKeys(window, typed);
    handlePostedEvents();
  }
  void pressSend() {
    [button(window, @"Send") performClick:nil];
    handlePostedEvents();
  }

  bool alertShows(const std::string &wanted) {
    const auto texts = [window attachedSheet] == nil ? std::vector<std::string>{}
                                                     : textsIn([window attachedSheet]);
    return std::find(texts.begin(), texts.end(), wanted) != texts.end();
  }
  bool wasSent() {
    NSArray *const operations = agent.operations();
    return [operations containsObject:kSendFile] || [operations containsObject:kSendFolder];
  }
};

}  // namespace

TEST_F(SendFileTab, RecipientsReachTheAgentAsTheOneStringThatWasEntered) {
  agent.answer(kSendFile, success(@"sent"));
  open();
  enterRecipients(@"a@example.org,b@example.net");
  pressSend();
  EXPECT_EQ(text([lastArguments() objectAtIndex:send_operation::kRecipients]),
            "a@example.org,b@example.net");
}

TEST_F(SendFileTab, AllArgumentsReachTheAgentInTheirOrder) {
  agent.answer(kSendFile, success(@"sent"));
  open();
  enterRecipients(@"a@example.org");
  [subject() setStringValue:@"Q&A 50%"];
  [message() setString:@"two\nlines"];
  [button(window, @"Notify me of each download") performClick:nil];
  pressSend();
  EXPECT_TRUE(([lastArguments() isEqual:@[
    @"id-1", @1, @0, @"-1", @"a@example.org", @"Q%26A%2050%25", @"two%0Alines", @1, @0
  ]])) << text(lastArguments());
}

TEST_F(SendFileTab, EachOptionReachesTheAgentInItsPlace) {
  agent.answer(kSendFile, refusal(1, @"no"));
  open();
  enterRecipients(@"a@example.org");
  [button(window, @"Send me a copy") performClick:nil];
  pressSend();
  EXPECT_TRUE([[lastArguments() objectAtIndex:send_operation::kCopyMe] boolValue]);
  EXPECT_FALSE([[lastArguments() objectAtIndex:send_operation::kNotifyOnDownload] boolValue]);
  [button([window attachedSheet], @"OK") performClick:nil];
  [button(window, @"Ask for their e-mail address") performClick:nil];
  NSPopUpButton *const numbers = static_cast<NSPopUpButton *>(button(window, @"Unlimited"));
  [[numbers menu] performActionForItemAtIndex:2];
  pressSend();
  EXPECT_TRUE([[lastArguments() objectAtIndex:send_operation::kRequireEmail] boolValue]);
  EXPECT_EQ(text([lastArguments() objectAtIndex:send_operation::kMaxDownloads]), "5");
}

TEST_F(SendFileTab, AnEmptyRecipientsFieldGivesTheBlankAlertAndAsksNobody) {
  open();
  pressSend();
  EXPECT_TRUE(alertShows("Check the recipients."));
  EXPECT_TRUE(alertShows(
      "Enter at least one e-mail address, and remove commas with nothing between them."));
  EXPECT_NE(button([window attachedSheet], @"OK"), nil);
  EXPECT_FALSE(wasSent());
}

TEST_F(SendFileTab, AnEmptyPartBetweenTwoAddressesGivesTheBlankAlert) {
  open();
  [recipients() setStringValue:@"a@example.org,,b@example.net"];
  pressSend();
  EXPECT_TRUE(alertShows(
      "Enter at least one e-mail address, and remove commas with nothing between them."));
  EXPECT_FALSE(wasSent());
}

TEST_F(SendFileTab, TheFirstBadAddressIsNamedAndNothingIsSent) {
  open();
  enterRecipients(@"a@example.org,bad,worse");
  pressSend();
  EXPECT_TRUE(alertShows(
      "\u201cbad\u201d is not a valid e-mail address. Correct or remove it, then try again."));
  EXPECT_FALSE(wasSent());
  EXPECT_EQ(log.lines(), withActivations({}));
}

TEST_F(SendFileTab, AnAlertLeavesEverythingThatWasEntered) {
  agent.answer(kSendFile, refusal(7, @"quota"));
  open();
  enterRecipients(@"a@example.org,b@example.net");
  [subject() setStringValue:@"subject"];
  [message() setString:@"message"];
  pressSend();
  EXPECT_TRUE(alertShows("The file could not be sent."));
  EXPECT_FALSE(alertShows("quota"));
  EXPECT_EQ(log.lines(), withActivations({"Error sending:quota"}));
  [button([window attachedSheet], @"OK") performClick:nil];
  handlePostedEvents();
  EXPECT_TRUE([window isVisible]);
  EXPECT_EQ(text([recipients() stringValue]), "a@example.org,b@example.net");
  EXPECT_EQ(text([subject() stringValue]), "subject");
  EXPECT_EQ(text([message() string]), "message");
}

TEST_F(SendFileTab, ASuccessShowsTheSheetOfFilesAndClosesTheWindowAfterThreeSeconds) {
  agent.answer(kSendFile, success(@"sent"));
  open();
  enterRecipients(@"a@example.org");
  const double pressed = detail::secondsNow();
  pressSend();
  EXPECT_TRUE(alertShows("The link to the file has been sent."));
  EXPECT_TRUE(handleEventsUntil([] { return visibleWindows().empty(); }));
  EXPECT_GE(detail::secondsNow() - pressed, 2.99);
  EXPECT_EQ(log.lines(), withActivations({"window closed"}));
}

TEST_F(SendFileTab, AFolderIsSentByTheFolderOperationWithTheSheetOfFolders) {
  agent.answer(kSendFolder, success(@"sent"));
  open({.isFolder = YES});
  enterRecipients(@"a@example.org");
  pressSend();
  EXPECT_EQ(text([agent.operations() lastObject]), text(kSendFolder));
  EXPECT_TRUE(alertShows("The link to the folder has been sent."));
  EXPECT_EQ(log.lines(), withActivations({}));
}

TEST_F(SendFileTab, AFoldersRefusalHasTheTextsOfFolders) {
  agent.answer(kSendFolder, refusal(1, @"no"));
  open({.isFolder = YES});
  enterRecipients(@"a@example.org");
  pressSend();
  EXPECT_TRUE(alertShows("The folder could not be sent."));
  EXPECT_EQ(log.lines(), withActivations({"Error sending:no"}));
  EXPECT_TRUE(alertShows("Make sure that the folder has finished syncing, then try again. Your "
                         "message has been kept."));
}

TEST_F(SendFileTab, AFilesRefusalHasTheTextsOfFiles) {
  agent.answer(kSendFile, refusal(1, @"no"));
  open();
  enterRecipients(@"a@example.org");
  pressSend();
  EXPECT_TRUE(alertShows(text(localizedText(@"unableToSendFileMessageTextKey"))));
  EXPECT_TRUE(alertShows(text(localizedText(@"fileNotAvailableInformativeTextKey"))));
}

TEST_F(SendFileTab, TheSpinnerIsHiddenBeforeAndAfter) {
  agent.answer(kSendFile, refusal(1, @"no"));
  open();
  NSProgressIndicator *const spinner = find<NSProgressIndicator>([NSProgressIndicator class]);
  ASSERT_NE(spinner, nil);
  EXPECT_TRUE([spinner isHidden]);
  enterRecipients(@"a@example.org");
  pressSend();
  EXPECT_TRUE([spinner isHidden]);
}

TEST_F(SendFileTab, ASemicolonEndsARecipientToo) {
  agent.answer(kSendFile, refusal(1, @"no"));
  open();
  enterRecipients(@"a@example.org;b@example.net");
  pressSend();
  EXPECT_EQ(text([lastArguments() objectAtIndex:send_operation::kRecipients]),
            "a@example.org,b@example.net");
}

TEST_F(SendFileTab, AwakingChoosesTheFirstNumberWhateverTheInterfaceFileHas) {
  open();
  NSPopUpButton *const numbers = find<NSPopUpButton>([NSPopUpButton class]);
  [numbers selectItemAtIndex:3];
  [[controller sendFile] awakeFromNib];
  EXPECT_EQ([numbers indexOfSelectedItem], 0);
}

TEST_F(SendFileTab, NoReplyIsLoggedAndShownAndTheWindowStays) {
  open();
  enterRecipients(@"a@example.org");
  pressSend();
  EXPECT_TRUE(alertShows("Brisvale cannot be reached."));
  EXPECT_EQ(log.lines(), withActivations({kNoReplyLine}));
  EXPECT_TRUE([window isVisible]);
}

TEST_F(SendFileTab, AReplyWithoutErrorIsASuccess) {
  agent.answer(kSendFile, @{@"value" : @"sent"});
  open();
  enterRecipients(@"a@example.org");
  pressSend();
  EXPECT_TRUE(alertShows("The link to the file has been sent."));
}

TEST_F(SendFileTab, AnEmptySubjectBecomesTheDefaultOfTheKindThatTheOpenerGave) {
  agent.answer(kSendFile, refusal(1, @"no"));
  agent.setScript(@{
    kSendFile : @{@"reply" : refusal(1, @"no")},
    kSendFolder : @{@"reply" : refusal(1, @"no")}
  });
  open({.isFolder = YES});
  enterRecipients(@"a@example.org");
  [subject() setStringValue:@""];
  pressSend();
  EXPECT_EQ(text([lastArguments() objectAtIndex:send_operation::kSubject]),
            "A%20folder%20for%20you");
  // The opener said file; the disk says folder, but only afterwards.
  open({.item = @"/tmp", .isFolder = NO, .isFileId = NO});
  enterRecipients(@"a@example.org");
  [subject() setStringValue:@""];
  pressSend();
  EXPECT_EQ(text([agent.operations() lastObject]), text(kSendFolder));
  EXPECT_EQ(text([lastArguments() objectAtIndex:send_operation::kSubject]), "A%20file%20for%20you");
  EXPECT_EQ(log.lines(),
            withActivations({"Error sending:no", "recieve Notification close send/copy window.",
                             "window closed", "is folder", "Error sending:no"}));
}

TEST_F(SendFileTab, ALongSubjectReachesTheAgentAsItsFirstEightyUnits) {
  agent.answer(kSendFile, refusal(1, @"no"));
  open();
  enterRecipients(@"a@example.org");
  [subject() setStringValue:[@"" stringByPaddingToLength:100
                                              withString:@"0123456789"
                                         startingAtIndex:0]];
  pressSend();
  NSString *const firstEighty = [@"" stringByPaddingToLength:80
                                                  withString:@"0123456789"
                                             startingAtIndex:0];
  EXPECT_EQ(text([lastArguments() objectAtIndex:send_operation::kSubject]), text(firstEighty));
}

TEST_F(SendFileTab, ADoubledCommaTypedWithKeysIsABlankRecipient) {
  open();
  enterRecipients(@"a@example.org,,b@example.org");
  pressSend();
  EXPECT_TRUE(alertShows(text(localizedText(@"invalidEmailErrorInformativeTextBlankKey"))));
  EXPECT_FALSE(wasSent());
}

TEST_F(SendFileTab, ALongMessageIsNotCut) {
  agent.answer(kSendFile, refusal(1, @"no"));
  open();
  enterRecipients(@"a@example.org");
  [message() setString:[@"" stringByPaddingToLength:100000 withString:@"word" startingAtIndex:0]];
  pressSend();
  EXPECT_EQ([[lastArguments() objectAtIndex:send_operation::kMessage] length], 100000u);
}

TEST_F(SendFileTab, AnotherTryAfterAnAlertSends) {
  agent.setScript(@{kSendFile : @[ @{@"nil" : @1}, @{@"reply" : success(@"sent")} ]});
  open();
  enterRecipients(@"a@example.org");
  pressSend();
  [button([window attachedSheet], @"OK") performClick:nil];
  handlePostedEvents();
  pressSend();
  EXPECT_TRUE(alertShows("The link to the file has been sent."));
}

TEST_F(SendFileTab, HalfTypedRecipientsSurviveALookAtTheOtherTab) {
  open();
  enterRecipients(@"a@example.org,b@exam");
  [[controller sendAndCopyTab] selectTabViewItemAtIndex:1];
  handlePostedEvents();
  [[controller sendAndCopyTab] selectTabViewItemAtIndex:0];
  handlePostedEvents();
  EXPECT_EQ(text([recipients() stringValue]), "a@example.org,b@exam");
}

TEST_F(SendFileTab, ACompletionIsSentAsItsAddress) {
  agent.setScript(@{
    @"getEmployeeAddressBook" : @{
      @"reply" : success(@[ @{@"name" : @"Anna Meier", @"primaryemail" : @"anna@example.org"} ])
    },
    kSendFile : @{@"reply" : refusal(1, @"no")}
  });
  [delegate getAddressBookForShareFolder];
  open();
  [recipients() setCompletionDelay:0];
  enterRecipients(@"an");
  EXPECT_TRUE(handleEventsUntil([&] {
    for (NSWindow *panel in [NSApp windows]) {
      if (panel != window && [panel isVisible] && [panel level] >= NSPopUpMenuWindowLevel) {
        return true;
      }
    }
    return false;
  }));
  postKeys(window, [NSString stringWithFormat:@"%C", (unichar)NSDownArrowFunctionKey]);
  postKeys(window, @"\r");
  handlePostedEvents();
  EXPECT_EQ(text([recipients() stringValue]), "anna@example.org");
  pressSend();
  EXPECT_EQ(text([lastArguments() objectAtIndex:send_operation::kRecipients]), "anna@example.org");
}
