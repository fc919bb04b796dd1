// Every operation of the development agent, over a real connection to the real program.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#import "tests/devkit/DevelopmentAgent.h"
#include "tests/support/ProcessActivity.h"
#import "tests/support/Strings.h"

namespace {

NSString *const kColleague = @"kenji.tanaka@brisvale.test";

NSString *string(const std::string &text) {
  return [NSString stringWithUTF8String:text.c_str()];
}

class Agent : public testing::Test {
 protected:
  /// The one mail in the outbox.
  std::string mail() const {
    for (const auto &entry : std::filesystem::directory_iterator(kit_.dataFolder() + "/outbox")) {
      std::ifstream file(entry.path());
      return {std::istreambuf_iterator<char>(file), {}};
    }
    return "(no mail)";
  }

  id<KRVProxy> proxy() const { return agent_.proxy(); }

  Kit kit_;
  NSString *const file_ = string(kit_.makeFile("MyDocs/Pläne 写.txt"));
  NSString *const folder_ = string(kit_.makeFolder("MyDocs/Plans"));
  DevelopmentAgent agent_;
};

}  // namespace

TEST_F(Agent, MakesALinkToAFileByItsPath) {
  NSDictionary *const reply = [proxy() getLinkForFile:file_:YES:NO:@"-1":NO];
  EXPECT_EQ([[reply objectForKey:@"error"] intValue], 0);
  EXPECT_TRUE([[reply objectForKey:@"value"] hasPrefix:@"https://brisvale.test/s/"]);
}

TEST_F(Agent, MakesALinkToTheHomeFolderByItsId) {
  NSString *const home = [[proxy() getHomeDirectoryInfo] objectForKey:@"homefolder"];
  NSDictionary *const reply = [proxy() getLinkForFolder:home:YES:NO:@"5":YES];
  EXPECT_EQ(text([reply objectForKey:@"error"]), "0");
}

TEST_F(Agent, RefusesWhatItDoesNotKnowWithASentence) {
  NSDictionary *const reply = [proxy() getLinkForFile:@"no such id":YES:NO:@"-1":YES];
  EXPECT_EQ([[reply objectForKey:@"error"] intValue], 404);
  EXPECT_EQ(text([reply objectForKey:@"errorMessage"]),
            "The item is not, or no longer, in your Brisvale folder.");
  EXPECT_EQ(text([reply objectForKey:@"value"]), "(nil)");
}

TEST_F(Agent, MailsALinkToAFile) {
  NSDictionary *const reply = [proxy()
      sendFile:
         file_:YES:YES:@"3":@"a@b.example,c@d.example":@"Plan%20%C3%BC":@"Hello%2C%0Aworld":NO:YES];
  EXPECT_EQ([[reply objectForKey:@"error"] intValue], 0);
  EXPECT_NE(mail().find("To: a@b.example,\r\n c@d.example\r\n"), std::string::npos) << mail();
  EXPECT_NE(mail().find("Cc: jordan.avery@brisvale.test\r\n"), std::string::npos) << mail();
  EXPECT_NE(mail().find("Subject: =?UTF-8?B?UGxhbiDDvA==?=\r\n"), std::string::npos) << mail();
  EXPECT_NE(mail().find("Hello,\r\nworld\r\n"), std::string::npos) << mail();
  EXPECT_NE(mail().find(text([reply objectForKey:@"value"])), std::string::npos) << mail();
  EXPECT_NE(mail().find("Downloads allowed: 3"), std::string::npos) << mail();
}

TEST_F(Agent, MailsALinkToAFolder) {
  NSDictionary *const reply = [proxy() sendFolder:
                                          folder_:NO:NO:@"-1":@"a@b.example":@"S":@"M":NO:NO];
  EXPECT_EQ([[reply objectForKey:@"error"] intValue], 0);
  EXPECT_EQ(mail().find("Cc:"), std::string::npos) << mail();
}

TEST_F(Agent, GrantsListsAndRevokesAccess) {
  NSDictionary *const granted = [proxy() grantAccess:
                                          kColleague:folder_:YES:YES:YES:YES:NO:YES:@"Come%20in"];
  EXPECT_EQ([[granted objectForKey:@"error"] intValue], 0);
  NSDictionary *const person = [granted objectForKey:@"value"];
  EXPECT_EQ(text([person objectForKey:@"userfname"]), "健司");
  EXPECT_EQ(text([person objectForKey:@"userlname"]), "田中");
  EXPECT_EQ(text([person objectForKey:@"useremail"]), text(kColleague));
  EXPECT_NE(mail().find("Come in"), std::string::npos) << mail();

  NSArray *const entries = [[proxy() getAccess:folder_:NO] objectForKey:@"value"];
  ASSERT_EQ([entries count], 2u);
  EXPECT_TRUE([[[entries objectAtIndex:0] objectForKey:@"isowner"] boolValue]);
  EXPECT_EQ(text([[entries objectAtIndex:1] objectForKey:@"useremail"]), text(kColleague));
  EXPECT_EQ(text([[entries objectAtIndex:1] objectForKey:@"type"]), "user");
  EXPECT_TRUE([[[entries objectAtIndex:1] objectForKey:@"candelete"] boolValue]);

  EXPECT_EQ(text([[proxy() revokeAccess:kColleague:folder_:NO] objectForKey:@"error"]), "0");
  EXPECT_EQ([[[proxy() getAccess:folder_:NO] objectForKey:@"value"] count], 1u);
}

TEST_F(Agent, TheSampleSharedFolderHasPeopleAndAGroup) {
  NSString *const shared = string(kit_.makeFolder("MyDocs/Project Aurora"));
  NSArray *const entries = [[proxy() getAccess:shared:NO] objectForKey:@"value"];
  ASSERT_EQ([entries count], 5u);
  EXPECT_EQ(text([[entries objectAtIndex:4] objectForKey:@"type"]), "group");
}

TEST_F(Agent, KnowsAnEmployeeByTheAddress) {
  NSDictionary *const person = [[proxy() getUserInfo:kColleague:NO] objectForKey:@"value"];
  EXPECT_TRUE([[person objectForKey:@"accountemployee"] boolValue]);
  EXPECT_EQ(text([person objectForKey:@"name"]), "健司 田中");
  EXPECT_EQ(text([person objectForKey:@"primaryemail"]), text(kColleague));
}

TEST_F(Agent, GivesTheAddressBook) {
  NSArray *const people = [[proxy() getEmployeeAddressBook] objectForKey:@"value"];
  EXPECT_GT([people count], 50u);
  EXPECT_EQ(text([[people objectAtIndex:0] objectForKey:@"name"]), "Holloway, Margaret");
  EXPECT_EQ(text([[people objectAtIndex:0] objectForKey:@"primaryemail"]),
            "margaret.holloway@brisvale.test");
}

TEST_F(Agent, SearchesTheAddressBook) {
  NSArray *const people = [[proxy() getAddressBook:@"Stone"] objectForKey:@"value"];
  EXPECT_EQ([people count], 2u);
}

TEST_F(Agent, TellsWhoseAccountItHolds) {
  EXPECT_EQ(text([[proxy() getActiveAccount] objectForKey:@"primaryemail"]),
            "jordan.avery@brisvale.test");
}

TEST_F(Agent, ALogLineTellsOfEveryOperation) {
  [proxy() revokeAccess:@"a@b":@"x":YES];
  EXPECT_NE(kit_.data("operations.jsonl")
                .find(R"("operation": "revokeAccess", "arguments": {"userEmail": "a@b", )"
                      R"("pathOrId": "x", "isFileId": true}, "error": 404)"),
            std::string::npos)
      << kit_.data("operations.jsonl");
}

TEST(AgentAddressBook, ALargeOneIsBuiltOnceAndThenAnsweredAtOnce) {
  const Kit kit;
  DevelopmentAgent agent({"--contacts", "100000"});
  const auto processorTimeOfAnAnswer = [&agent] {
    const pid_t process = agent.process().pid();
    const ProcessActivity before = ProcessActivity::of(process);
    EXPECT_EQ([[[agent.proxy() getEmployeeAddressBook] objectForKey:@"value"] count], 100'000u);
    return ProcessActivity::of(process).processorMillisecondsSince(before);
  };
  const double building = processorTimeOfAnAnswer();
  EXPECT_LT(processorTimeOfAnAnswer() * 10, building);
}
