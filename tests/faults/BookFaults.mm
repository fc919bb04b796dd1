// The address book of a user whose agent fails: at the launch, and at the daily refresh.
#import "tests/e2e/RunningApplication.h"
#import "tests/faults/EndedThreads.h"
#import "tests/faults/FaultTest.h"
#include "tests/ui/WindowFixtures.h"

namespace {

NSString *const kBook = @"getEmployeeAddressBook";

NSArray *contacts() {
  return @[
    @{@"name" : @"Doe, John", @"primaryemail" : @"john@x.de"},
    @{@"name" : @"Anna", @"primaryemail" : @"anna@x.de"}
  ];
}

struct Refresh : FaultTest<WindowsWithoutAgent> {
  void refresh() {
    mark();
    EndedThreads *const threads = [[EndedThreads alloc] init];
    [delegate updateAddressBook:nil];
    EXPECT_TRUE(handleEventsUntil([&] { return threads->count > 0; }));
    [threads release];
  }

  void expect(NSUInteger count) const {
    EXPECT_EQ([[delegate addressBookForShare] count], count);
    EXPECT_EQ(logged(), withActivations({}));
    EXPECT_TRUE([delegate contextMenuFlag]);
    EXPECT_EQ(text(clipboardText()), "former contents");
    EXPECT_TRUE(visibleWindows().empty());
  }
};

struct LaunchWithFault : FaultTest<testing::Test> {
  bool copies() {
    ChildProcess copy({PLUGIN_CALL, "id-1"});
    return copy.waitForEnd() == 0 && clipboardReadByXclip() == "https://x/y";
  }
};

}  // namespace

TEST_P(Refresh, LeavesTheBookThatThereIsAndTheNextOneIsWhole) {
  begin();
  agent.injectFault(kBook, contacts());
  refresh();
  agent.injectFaultAfterwards();
  expect(fault().contacts);
  agent.recover(kBook, contacts());
  refresh();
  expect(kHealthyContacts);
}

TEST_P(LaunchWithFault, SaysNothingAndTheApplicationServes) {
  begin();
  agent.injectFault(kBook, contacts());
  RunningApplication application;
  ASSERT_TRUE(application.waitUntilServing()) << application.process().output();
  agent.injectFaultAfterwards();
  EXPECT_EQ(application.log(),
            afterStart({"Context Menu Application Launched for first time",
                        "Context Menu Plugin Connection successfully created."}));
  EXPECT_FALSE(RunningApplication::isVisible());
  agent.recover(@"getLinkForFile:::::", @"https://x/y");
  EXPECT_TRUE(copies());
}

INSTANTIATE_TEST_SUITE_P(Row, Refresh, testing::ValuesIn(testedCellsOf(Column::Refresh)),
                         nameOfRow);
INSTANTIATE_TEST_SUITE_P(Row, LaunchWithFault,
                         testing::ValuesIn(testedCellsOf(Column::LaunchWithFault)), nameOfRow);
