#include <gtest/gtest.h>

#import "app/ContextMenuAppAppDelegate.h"
#include "tests/support/AgentProcess.h"
#include "tests/support/Pump.h"
#include "tests/ui/Application.h"

TEST(AddressBookRefresh, ReloadsTheAddressBooksAndStaysScheduled) {
  ContextMenuAppAppDelegate *const delegate = loadedDelegate();
  AgentProcess agent;
  [delegate applicationDidFinishLaunching:nil];
  EXPECT_EQ([[delegate addressBookForShare] count], 0u);
  NSArray *const book = @[ @{@"name" : @"Doe, John", @"primaryemail" : @"a@b"} ];
  agent.setScript(@{@"getEmployeeAddressBook" : @{@"reply" : success(book)}});
  [[delegate updateAddressBookTimer] fire];
  EXPECT_TRUE(pumpUntil([&] { return [[delegate addressBookForShare] count] == 1; }));
  EXPECT_TRUE([[delegate updateAddressBookTimer] isValid]);
}
