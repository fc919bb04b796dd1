// Names and replies that are made to be mistaken for something else, from end to end: client,
// window, mail, log of the application, log and store of the service.

#include <algorithm>
#include <filesystem>
#include <sstream>

#import "tests/e2e/SendTab.h"
#import "tests/e2e/ServiceTest.h"
#import "tests/e2e/WindowTest.h"

namespace {

struct Name {
  const char *what;
  std::string name;
  std::string title;
};

void PrintTo(const Name &name, std::ostream *out) {
  *out << name.what;
}

std::string repeated(const std::string &part, int times) {
  std::string all;
  for (int i = 0; i < times; ++i) all += part;
  return all;
}

/// Everything that a reader of lines of JSON could misread.
testing::AssertionResult isJson(const std::string &lines) {
  std::istringstream stream(lines);
  for (std::string line; std::getline(stream, line);) {
    NSData *const data = [NSData dataWithBytes:line.data() length:line.size()];
    if ([NSJSONSerialization JSONObjectWithData:data options:0 error:nullptr] == nil) {
      return testing::AssertionFailure() << "no JSON: " << line;
    }
  }
  return testing::AssertionSuccess();
}

struct HostileName : ServiceTest, testing::WithParamInterface<Name> {};

struct HostileAnswer : WindowTest, ScreenTab {};

}  // namespace

TEST_P(HostileName, IsOnlyAName) {
  const std::string file = kit.makeFile("MyDocs/" + GetParam().name);
  ASSERT_TRUE(openWindow({"send", "--", file}, GetParam().title));
  typeText("ann@example.org,");
  ASSERT_TRUE(clickAndSeeSheet(kSendButton));
  EXPECT_TRUE(waitForWindows(0));
  EXPECT_TRUE(has(onlyMail(), "To: \"ann@example.org\"\n"));
  EXPECT_TRUE(isJson(kit.data("operations.jsonl")));
  ASSERT_TRUE(client({"copy-link", "--", file}));
  EXPECT_FALSE(application.process().hasEnded());
}

INSTANTIATE_TEST_SUITE_P(
    Each, HostileName,
    testing::Values(Name{"LineBreaks", "two\nlines\r.txt", "two lines .txt"},
                    Name{"FormatDirectives", "%@%n%s%1$s%99999d.txt", "%@%n%s%1$s%99999d.txt"},
                    Name{"AnotherDirection", "photo\u202Egpj.exe", "photo gpj.exe"},
                    Name{"ControlCharacters", "bell\a\x1B[2J.txt", "bell  [2J.txt"},
                    Name{"TheLongestThereIs", repeated("x", 255), repeated("x", 255)},
                    Name{"AnOptionOfTheClient", "--tab", "--tab"},
                    Name{"AHeaderOfAMail", "a\nBcc: evil@example.org", "a Bcc: evil@example.org"}),
    [](const auto &info) { return info.param.what; });

TEST_F(HostileAnswer, ALogLineCannotBeForgedByTheServicesMessage) {
  agent->answer(@"sendFile:::::::::",
                refusal(7, @"quota\n2026-01-01 00:00:00.000 ContextMenuApp[1:1] copy success = 1"));
  ASSERT_TRUE(open(SendCall{.tab = 0}));
  window = onlyWindow("Quarterly figures.csv");
  typeText("ann@example.org,");
  ASSERT_TRUE(clickAndSeeSheet(kSendButton));
  EXPECT_EQ(linesInLog("copy success = 1"), 0);
  EXPECT_EQ(linesInLog("Error sending:quota 2026-01-01 00:00:00.000 ContextMenuApp[1:1] copy "
                       "success = 1"),
            1);
}

TEST_F(HostileAnswer, WhatTheUserWritesIsInNoLog) {
  agent->answer(@"sendFile:::::::::", success(@"https://x/secret-link"));
  ASSERT_TRUE(open(SendCall{.item = "secret-id", .name = "secret-name.txt", .tab = 0}));
  window = onlyWindow("secret-name.txt");
  typeText("secret-person@example.org,");
  click(kSendMessage);
  typeText("secret-message");
  ASSERT_TRUE(clickAndSeeSheet(kSendButton));
  EXPECT_TRUE(waitForWindows(0));
  EXPECT_EQ(application.process().countInOutput("secret"), 0);
}

TEST_F(HostileAnswer, ALinkThatIsCopiedIsInNoLog) {
  agent->answer(kFileLink, success(@"https://x/secret-link"));
  ChildProcess copy({PLUGIN_CALL, "secret-id"});
  EXPECT_EQ(copy.waitForEnd(), 0);
  EXPECT_EQ(clipboardReadByXclip(), "https://x/secret-link");
  EXPECT_EQ(application.process().countInOutput("secret"), 0);
}
