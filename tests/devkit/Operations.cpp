#include "devkit/agent/Operations.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

#include "devkit/agent/AgentOptions.h"
#include "tests/devkit/Kit.h"

using devkit::ItemReference;
using devkit::Kind;
using devkit::Reply;

namespace {

constexpr auto kColleague = "kenji.tanaka@brisvale.test";

/// What the agent does, without a connection.
class Operations : public testing::Test {
 protected:
  static int error(const Reply &reply) { return reply.error; }

  Reply send(const std::string &recipients) {
    return operations_.send(Kind::File, file_, {.maxDownloads = "-1"},
                            {.recipients = recipients, .subject = "s", .message = "m"});
  }

  Reply grant(const ItemReference &item, const std::string &email) {
    return operations_.grantAccess(
        item, {.userEmail = email, .rights = {.download = true}, .message = "m"});
  }

  std::size_t mails() const {
    namespace fs = std::filesystem;
    if (!fs::exists(kit_.dataFolder() + "/outbox")) return 0;
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(kit_.dataFolder() + "/outbox"), {}));
  }

  Kit kit_;
  devkit::Operations operations_{kit_.dataFolder(), kit_.syncedFolder()};
  ItemReference file_ = {kit_.makeFile("MyDocs/plan.txt"), false};
  ItemReference folder_ = {kit_.makeFolder("MyDocs/Plans"), false};
};

struct Number {
  const char *what;
  const char *text;
};

void PrintTo(const Number &number, std::ostream *out) {
  *out << number.what;
}

class Downloads : public Operations, public testing::WithParamInterface<Number> {};

}  // namespace

TEST_F(Operations, AnItemThatIsNotThereIsRefusedWithASentence) {
  const auto reply = operations_.getLink(Kind::File, {"/etc/passwd", false}, {.maxDownloads = "1"});
  EXPECT_EQ(reply.error, 404);
  EXPECT_EQ(reply.errorMessage, "“/etc/passwd” is not in your Brisvale folder.");
  EXPECT_EQ(error(operations_.getLink(Kind::File, {"unknown", true}, {.maxDownloads = "1"})), 404);
}

TEST_F(Operations, AbsentArgumentsAreRefused) {
  EXPECT_EQ(error(operations_.getLink(Kind::File, {}, {})), 400);
  EXPECT_EQ(error(operations_.send(Kind::File, {}, {}, {})), 400);
  EXPECT_EQ(error(operations_.grantAccess({}, {})), 400);
  EXPECT_EQ(error(operations_.revokeAccess({}, {})), 400);
  EXPECT_EQ(error(operations_.getAccess({})), 400);
  EXPECT_EQ(error(operations_.getUserInfo({}, false)), 400);
}

TEST_F(Operations, AFileIsNoFolderAndAFolderNoFile) {
  EXPECT_EQ(error(operations_.getLink(Kind::Folder, file_, {.maxDownloads = "-1"})), 400);
  EXPECT_EQ(error(operations_.getLink(Kind::File, folder_, {.maxDownloads = "-1"})), 400);
  EXPECT_EQ(error(operations_.getAccess(file_)), 400);
}

TEST_P(Downloads, ThatAreNoNumberAreRefused) {
  EXPECT_EQ(error(operations_.getLink(Kind::File, file_, {.maxDownloads = GetParam().text})), 400);
}

INSTANTIATE_TEST_SUITE_P(All, Downloads,
                         testing::Values(Number{"Nothing", ""}, Number{"Zero", "0"},
                                         Number{"Negative", "-2"}, Number{"Word", "five"},
                                         Number{"TrailingBlank", "5 "},
                                         Number{"TooLarge", "99999999999999999999"}),
                         [](const auto &info) { return info.param.what; });

TEST_F(Operations, AMailToNoAddressIsNotSent) {
  EXPECT_EQ(error(send("a@b,nobody")), 400);
  EXPECT_EQ(error(send("")), 400);
  EXPECT_EQ(error(send("a@b\r\nBcc: c@d")), 400);
  EXPECT_EQ(mails(), 0u);
}

TEST_F(Operations, AMailIsWrittenForTheGoodOne) {
  EXPECT_EQ(error(send("a@b,c@d")), 0);
  EXPECT_EQ(mails(), 1u);
}

TEST_F(Operations, AMailThatIsTooLongIsRefused) {
  const std::string huge(2 * 1024 * 1024, 'x');
  EXPECT_EQ(error(operations_.send(Kind::File, file_, {.maxDownloads = "-1"},
                                   {.recipients = "a@b", .subject = "s", .message = huge})),
            400);
}

TEST_F(Operations, OnlyColleaguesAreGivenAccess) {
  EXPECT_EQ(error(grant(folder_, kColleague)), 0);
  EXPECT_EQ(error(grant(folder_, "nadia.rahman@brisvale.test")), 0);
  EXPECT_EQ(error(grant(folder_, "robin.ellis@lakeside-print.test")), 404);
  EXPECT_EQ(error(grant(folder_, "nobody@brisvale.test")), 404);
  EXPECT_EQ(error(grant(folder_, "jordan.avery@brisvale.test")), 403);
}

TEST_F(Operations, WhatSomebodyElseSharesCannotBePassedOn) {
  const ItemReference foreign = {kit_.makeFolder("Team Handbook"), false};
  EXPECT_EQ(error(grant(foreign, kColleague)), 403);
  EXPECT_EQ(error(operations_.revokeAccess(kColleague, foreign)), 403);
  EXPECT_EQ(error(operations_.getAccess(foreign)), 0);
}

TEST_F(Operations, AccessThatNobodyHasCannotBeRevoked) {
  EXPECT_EQ(error(operations_.revokeAccess(kColleague, folder_)), 404);
}

TEST_F(Operations, AStrangerIsKnownToBeNoEmployee) {
  const auto reply = operations_.getUserInfo("who@elsewhere.example", false);
  EXPECT_EQ(reply.error, 0);
  EXPECT_EQ(std::get<devkit::Record>(reply.value).back(),
            (devkit::Record::value_type{"accountemployee", false}));
}

TEST_F(Operations, EveryOperationLeavesALineWithItsArguments) {
  operations_.getUserInfo("a\n\"b\\\xFF", true);
  operations_.getAccess({});
  const auto log = kit_.data("operations.jsonl");
  EXPECT_NE(log.find(R"("operation": "getUserInfo", "arguments": )"
                     R"({"userEmail": "a\u000a\"b\\)"
                     "\uFFFD"
                     R"(", "userInfoFlag": true}, "error": 400)"),
            std::string::npos)
      << log;
  EXPECT_NE(log.find(R"("arguments": {"pathOrId": null, "isFileId": false}, "error": 400)"),
            std::string::npos)
      << log;
}

TEST_F(Operations, AStoreThatFailsIsARefusalAndNoEnd) {
  devkit::Database(kit_.dataFolder() + "/store.sqlite").execute("DROP TABLE links");
  EXPECT_EQ(error(operations_.getLink(Kind::File, file_, {.maxDownloads = "-1"})), 500);
}

TEST(AgentOptions, AreReadFromTheCommandLine) {
  const auto options = devkit::parseAgentOptions({"--data", "/a", "--contacts", "5"});
  EXPECT_EQ(options.problem, "");
  EXPECT_EQ(options.dataFolder, "/a");
  EXPECT_EQ(options.contacts, 5);
}

TEST(AgentOptions, ThePlatformsOwnOptionsAreLeftToIt) {
  EXPECT_EQ(devkit::parseAgentOptions({"-NSLanguages", "fr", "--help"}).problem, "");
}

TEST(AgentOptions, WhatMakesNoSenseIsToldSo) {
  EXPECT_NE(devkit::parseAgentOptions({"--contacts", "many"}).problem, "");
  EXPECT_NE(devkit::parseAgentOptions({"--contacts", "-1"}).problem, "");
  EXPECT_NE(devkit::parseAgentOptions({"--contacts"}).problem, "");
  EXPECT_NE(devkit::parseAgentOptions({"--data", ""}).problem, "");
  EXPECT_NE(devkit::parseAgentOptions({"extra"}).problem, "");
}
