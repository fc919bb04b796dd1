#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>

#include "devkit/mail/MailMessage.h"
#include "devkit/mail/Outbox.h"
#include "devkit/mail/Recipients.h"
#include "devkit/mail/TransferEncoding.h"
#include "tests/support/ChildProcess.h"

using devkit::headerText;
using devkit::MailMessage;
using devkit::parseRecipients;
using devkit::quotedPrintable;

namespace {

constexpr auto kAllHeaders =
    "Date From To Cc Subject Message-ID MIME-Version Content-Type Content-Transfer-Encoding";

MailMessage sampleMessage() {
  return {.senderName = "Jordan Avery",
          .senderAddress = "jordan@brisvale.test",
          .recipients = {"ann@brisvale.test", "bo@brisvale.test"},
          .copyToSender = true,
          .subject = "Quarterly figures",
          .body = "Hello",
          .date = 1'700'000'000,
          .token = "0123456789abcdef0123456789abcdef"};
}

/// The mail as an independent parser reads it.
std::string read(const MailMessage &mailMessage) {
  const auto path = devkit::Outbox(newTemporaryFolder()).put(mailMessage);
  ChildProcess reader({"/usr/bin/python3", "-I", READ_MAIL, path});
  reader.waitForEnd();
  return reader.output();
}

std::size_t longestLine(std::string_view text) {
  std::size_t longest = 0;
  while (!text.empty()) {
    const auto end = std::min(text.find("\r\n"), text.size());
    longest = std::max(longest, end);
    text.remove_prefix(std::min(end + 2, text.size()));
  }
  return longest;
}

bool contains(const std::string &text, const std::string &part) {
  return text.find(part) != std::string::npos;
}

}  // namespace

TEST(HeaderText, PlainTextIsLeftReadable) {
  EXPECT_EQ(headerText("Quarterly figures"), "Quarterly figures");
}

TEST(HeaderText, LineEndsBecomeBlanksSoThatNoHeaderCanBeAdded) {
  EXPECT_EQ(headerText("a\r\nBcc: x@y"), "a  Bcc: x@y");
  EXPECT_EQ(headerText("a\nb"), "a b");
}

TEST(HeaderText, OtherTextIsEncodedInWordsOfAllowedLength) {
  std::string text;
  for (int character = 0; character < 200; ++character) text += "写";
  EXPECT_TRUE(headerText(text).starts_with("=?UTF-8?B?"));
  EXPECT_LE(longestLine(headerText(text)), 76u);
}

TEST(QuotedPrintable, AsciiStaysReadable) {
  EXPECT_EQ(quotedPrintable("Dear Ann,\n\nhello = goodbye"),
            "Dear Ann,\r\n\r\nhello =3D goodbye\r\n");
}

TEST(QuotedPrintable, AllLineEndsAreTheSame) {
  EXPECT_EQ(quotedPrintable("a\rb\r\nc\n"), "a\r\nb\r\nc\r\n");
}

TEST(QuotedPrintable, BlanksAtTheEndOfALineAreKept) {
  EXPECT_EQ(quotedPrintable("a \nb\t"), "a=20\r\nb=09\r\n");
}

TEST(QuotedPrintable, NoLineIsTooLong) {
  EXPECT_LE(longestLine(quotedPrintable(std::string(10'000, 'x'))), 76u);
  EXPECT_LE(longestLine(quotedPrintable(std::string(1'000, '\xE4'))), 76u);
}

TEST(Recipients, AreSeparatedByCommas) {
  const auto result = parseRecipients("ann@b.example, bo@c.example");
  EXPECT_FALSE(result.invalid);
  EXPECT_EQ(result.addresses, (std::vector<std::string>{"ann@b.example", "bo@c.example"}));
}

TEST(Recipients, TheFirstThatIsNoAddressIsNamed) {
  EXPECT_EQ(parseRecipients("").invalid, "");
  EXPECT_EQ(parseRecipients("a@b,,c@d").invalid, "");
  EXPECT_EQ(parseRecipients("a@b,nobody,c@d").invalid, "nobody");
  EXPECT_EQ(parseRecipients("a@b@c").invalid, "a@b@c");
  EXPECT_EQ(parseRecipients("Ann <a@b>").invalid, "Ann <a@b>");
}

TEST(Recipients, NoAddressCanCarryAnotherHeader) {
  EXPECT_TRUE(parseRecipients("a@b\r\nBcc: c@d").invalid);
  EXPECT_TRUE(parseRecipients("a@b\nSubject:x").invalid);
  EXPECT_TRUE(parseRecipients(std::string("a@b\0c", 5)).invalid);
}

TEST(MailMessage, AMailProgramReadsWhatWasWritten) {
  const auto found = read(sampleMessage());
  EXPECT_TRUE(found.starts_with(std::string(kAllHeaders) + "\n")) << found;
  EXPECT_TRUE(contains(found, R"(From: "Jordan Avery <jordan@brisvale.test>")")) << found;
  EXPECT_TRUE(contains(found, R"(To: "ann@brisvale.test, bo@brisvale.test")")) << found;
  EXPECT_TRUE(contains(found, R"(Cc: "jordan@brisvale.test")")) << found;
  EXPECT_TRUE(contains(found, R"(Subject: "Quarterly figures")")) << found;
  EXPECT_TRUE(contains(found, R"(Body: "Hello\n")")) << found;
}

TEST(MailMessage, AllScriptsArriveWhole) {
  auto written = sampleMessage();
  written.senderName = "María José \"Pepa\" González";
  written.subject =
      "Übersicht 写真 حداد 🗂️ and a subject that does not fit into one line by far";
  written.body = "Grüße,\n写真 = \t🗂️ \n.\nFrom here";
  const auto found = read(written);
  EXPECT_TRUE(contains(found, "\"" + written.subject + "\"")) << found;
  EXPECT_TRUE(contains(found, R"(Body: "Grüße,\n写真 = \t🗂️ \n.\nFrom here\n")")) << found;
}

TEST(MailMessage, ATextThatLooksEncodedArrivesAsItIs) {
  auto written = sampleMessage();
  written.subject = "=?UTF-8?B?YQ==?=";
  EXPECT_TRUE(contains(read(written), R"(Subject: "=?UTF-8?B?YQ==?=")")) << read(written);
}

TEST(MailMessage, TheSenderGetsNoCopyUnasked) {
  auto written = sampleMessage();
  written.copyToSender = false;
  EXPECT_TRUE(contains(read(written), "Cc: null"));
}

TEST(MailMessage, NoTextCanAddAHeader) {
  auto written = sampleMessage();
  written.subject = "a\r\nBcc: evil@example.org\r\n\r\nbody";
  written.senderName = "b\r\nBcc: evil@example.org";
  const auto found = read(written);
  EXPECT_TRUE(found.starts_with(std::string(kAllHeaders) + "\n")) << found;
}

TEST(MailMessage, ManyRecipientsMakeNoLongLine) {
  auto written = sampleMessage();
  written.recipients.assign(500, "somebody.with.a.long.name@department.brisvale.test");
  EXPECT_LE(longestLine(devkit::written(written)), 998u);
}
