#include <gtest/gtest.h>

#import <Foundation/Foundation.h>

#import "platform/gnustep/keyboard/MacKeys.h"
#include "tests/support/PlatformLeak.h"
#include "tests/support/Strings.h"

namespace {

/// The platform's class leaks a dictionary in dealloc; the application uses the standard defaults
/// only.
NSUserDefaults *newDefaults() {
  const PlatformLeak dictionary;
  return [[NSUserDefaults alloc] init];
}

/// Defaults without a modifier key.
struct ModifierKeys : testing::Test {
  NSUserDefaults *defaults = newDefaults();

  ModifierKeys() { [defaults setSearchList:@[ @"ChosenKeys", NSRegistrationDomain ]]; }
  ~ModifierKeys() override { [defaults release]; }

  std::string key(NSString *name) { return text([defaults stringForKey:name]); }
};

}  // namespace

TEST_F(ModifierKeys, ControlIsCommand) {
  registerModifierKeys(defaults);
  EXPECT_EQ(key(@"GSFirstCommandKey"), "Control_L");
  EXPECT_EQ(key(@"GSSecondCommandKey"), "Control_R");
}

TEST_F(ModifierKeys, NoKeyHasTwoMeanings) {
  registerModifierKeys(defaults);
  NSMutableSet *const keys = [NSMutableSet set];
  for (NSString *modifier in @[ @"Command", @"Control", @"Alternate" ]) {
    for (NSString *side in @[ @"First", @"Second" ]) {
      [keys addObject:[defaults
                          stringForKey:[NSString stringWithFormat:@"GS%@%@Key", side, modifier]]];
    }
  }
  EXPECT_EQ([keys count], 6u);
}

TEST_F(ModifierKeys, OneKeyThatTheUserChoseLeavesAllOfThemToTheUser) {
  NSDictionary *const chosen = @{@"GSFirstAlternateKey" : @"Super_L"};
  [defaults setVolatileDomain:chosen forName:@"ChosenKeys"];
  registerModifierKeys(defaults);
  EXPECT_EQ(key(@"GSFirstAlternateKey"), "Super_L");
  EXPECT_EQ(key(@"GSFirstCommandKey"), "(nil)");
}

TEST_F(ModifierKeys, RegisteringThemAgainChangesNothing) {
  registerModifierKeys(defaults);
  registerModifierKeys(defaults);
  EXPECT_EQ(key(@"GSFirstCommandKey"), "Control_L");
}
