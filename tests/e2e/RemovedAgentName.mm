#include <algorithm>
#include <filesystem>

#import "agent/AgentIdentity.h"
#import "tests/e2e/Screen.h"
#import "tests/e2e/ServiceTest.h"
#include "tests/support/CapturedLog.h"

// The agent runs, but a cleaner of temporary folders has removed its name.

namespace fs = std::filesystem;

namespace {

struct RemovedAgentName : ServiceTest {
  void SetUp() override {
    ServiceTest::SetUp();
    NSString *const encoded = [[agent::kConnectionName dataUsingEncoding:NSUTF8StringEncoding]
        base64EncodedStringWithOptions:0];
    ASSERT_TRUE(fs::remove(fs::path([NSTemporaryDirectory() fileSystemRepresentation]) /
                           "NSMessagePort" / "names" / [encoded UTF8String]));
  }

  // The agent does not register its name again.
  void TearDown() override { SharedSystem::end(); }

  long linesInLog(const std::string &line) const {
    const auto lines = application.log();
    return std::count(lines.begin(), lines.end(), line);
  }
};

}  // namespace

TEST_F(RemovedAgentName, EndsADirectCopyWithTheAlertThatTheServiceCannotBeReached) {
  ChildProcess copy({CONTEXTMENU, "copy-link", kit.makeFile("second.txt")});
  ASSERT_TRUE(clickIntoAlert()) << application.process().output();
  EXPECT_EQ(linesInLog(kNoReplyLine), 1);
  pressKeys({"Return"});
  EXPECT_EQ(copy.waitForEnd(), 0) << copy.output();
  EXPECT_TRUE(waitForWindows(0));
  EXPECT_EQ(clipboardReadByXclip(), "");
}
