// A link is mailed: from the plug-in's client through the window to the outbox of the service.

#include <filesystem>
#include <ostream>

#include "devkit/store/Store.h"
#import "tests/e2e/SendTab.h"
#import "tests/e2e/ServiceTest.h"

namespace {

/// What differs for a user who reads another language.
struct Language {
  const char *environment;
  const char *fileSubject;
  const char *folderSubject;
};

void PrintTo(const Language &language, std::ostream *out) {
  *out << language.environment;
}

/// Of the recipients' first line, where the field is empty until there is a text.
ScreenArea behindCaretOfRecipients() {
  const ScreenArea field = kSendRecipients;
  return {field.x + 60, field.y + 20, 200, 20};
}

struct SendMail : ServiceTest, testing::WithParamInterface<Language> {
  SendMail() : ServiceTest(GetParam().environment) {}

  bool openOn(const std::string &path) {
    return openWindow({"send", path}, std::filesystem::path(path).filename());
  }

  /// The recipients as most users enter them: two letters and a choice from the list, then an
  /// address by hand.
  static void enterRecipients() {
    typeText("ol");
    EXPECT_TRUE(waitForWindows(2));  // the list is one
    pressKeys({"Down", "Return"});
    EXPECT_TRUE(waitForWindows(1));
    typeText("guest@example.org,");
  }

  /// Presses Send and waits until the success has been shown and the window has closed.
  void send() const {
    EXPECT_TRUE(clickAndSeeSheet(kSendButton));
    EXPECT_TRUE(waitForWindows(0));
  }
};

}  // namespace

TEST_P(SendMail, AFileArrivesWithAllThatWasEntered) {
  ASSERT_TRUE(openOn(kit.makeFile("MyDocs/Übersicht 漢字.txt")));
  enterRecipients();
  click(kSendSubject);
  pressKeys({"ctrl+a"});
  typeText("Q&A 50%");
  click(kSendMessage);
  typeText("Dear all,\nplease read <this> = now.");
  toggle(kSendCopyMe);
  toggle(kSendAskForMail);
  choose(kSendDownloads, 0, 2);
  send();
  const std::string mail = onlyMail();
  EXPECT_TRUE(has(mail, "To: \"olivia.bennett@brisvale.test, guest@example.org\"\n"));
  EXPECT_TRUE(has(mail, "Cc: \"jordan.avery@brisvale.test\"\n"));
  EXPECT_TRUE(has(mail, "Subject: \"Q&A 50%\"\n"));
  EXPECT_TRUE(has(mail, "Body: \"Dear all,\\nplease read <this> = now."));
  const std::string operation = lastOperation("sendFile");
  EXPECT_TRUE(has(operation, R"("notifyOnDownload": false, "requireEmail": true, )"
                             R"("maxDownloads": "5", )"));
  EXPECT_TRUE(has(operation, R"("isFileId": true, "copyMe": true}, "error": 0)"));
}

TEST_P(SendMail, AFolderArrivesWithTheSubjectThatWasProposed) {
  ASSERT_TRUE(openOn(kit.makeFolder("MyDocs/Plans")));
  enterRecipients();
  toggle(kSendNotify);
  send();
  const std::string mail = onlyMail();
  EXPECT_TRUE(has(mail, "To: \"olivia.bennett@brisvale.test, guest@example.org\"\n"));
  EXPECT_TRUE(has(mail, "Cc: null\n"));
  EXPECT_TRUE(has(mail, "Subject: \"" + std::string(GetParam().folderSubject) + "\"\n"));
  EXPECT_TRUE(has(lastOperation("sendFolder"),
                  R"("notifyOnDownload": true, "requireEmail": false, "maxDownloads": "-1", )"));
}

TEST_P(SendMail, PastedTextsInAnyScriptArriveWhole) {
  ASSERT_TRUE(openOn(kit.makeFile("MyDocs/plan.txt")));
  ASSERT_TRUE(copyInAnotherProgram("ann@example.org; bo@example.org\ncy@example.org"));
  pressKeys({"ctrl+v"});
  // The application reads the clipboard when it handles the key.
  ASSERT_TRUE(waitFor([&] { return !picture(onScreen(behindCaretOfRecipients())).empty(); }));
  click(kSendMessage);
  ASSERT_TRUE(copyInAnotherProgram("Grüße, 写真 مرحبا \U0001F5C2"));
  pressKeys({"ctrl+v"});
  send();
  const std::string mail = onlyMail();
  EXPECT_TRUE(has(mail, "To: \"ann@example.org, bo@example.org, cy@example.org\"\n"));
  EXPECT_TRUE(has(mail, "Body: \"Grüße, 写真 مرحبا \U0001F5C2"));
  EXPECT_TRUE(has(mail, "Subject: \"" + std::string(GetParam().fileSubject) + "\"\n"));
}

TEST_P(SendMail, AFileThatHasGoneIsRefusedAndNothingIsLost) {
  const std::string file = kit.makeFile("MyDocs/plan.txt");
  ASSERT_TRUE(openOn(file));
  enterRecipients();
  click(kSendMessage);
  typeText("kept");
  std::filesystem::remove(file);
  ASSERT_TRUE(clickAndSeeSheet(kSendButton));
  EXPECT_TRUE(mails().empty());
  ASSERT_TRUE(dismissAlert());
  kit.makeFile("MyDocs/plan.txt");
  send();
  const std::string mail = onlyMail();
  EXPECT_TRUE(has(mail, "To: \"olivia.bennett@brisvale.test, guest@example.org\"\n"));
  EXPECT_TRUE(has(mail, "Body: \"kept"));
}

INSTANTIATE_TEST_SUITE_P(Reading, SendMail,
                         testing::Values(Language{"en", "A file for you", "A folder for you"},
                                         Language{"de", "Eine Datei für Sie",
                                                  "Ein Ordner für Sie"}),
                         [](const auto &info) { return info.param.environment; });
