#import "platform/gnustep/runtime/DeallocHook.h"

#include <gtest/gtest.h>

@interface HookedParent : NSObject
@end

@implementation HookedParent

- (void)dealloc {
  [super dealloc];
}

@end

@interface HookedChild : HookedParent
@end

@implementation HookedChild

- (void)dealloc {
  [super dealloc];
}

@end

/// Inherits the dealloc of its superclass.
@interface HookedHeir : HookedParent
@end

@implementation HookedHeir
@end

namespace {

int parents = 0;
int children = 0;

void countParent(id) {
  ++parents;
}

void countChild(id) {
  ++children;
}

struct DeallocHook : testing::Test {
  DeallocHook() {
    addDeallocHook([HookedParent class], countParent);
    addDeallocHook([HookedChild class], countChild);
    parents = 0;
    children = 0;
  }
};

}  // namespace

TEST_F(DeallocHook, RunsTheActionForAnObjectOfTheClass) {
  [[[HookedParent alloc] init] release];
  EXPECT_EQ(parents, 1);
  EXPECT_EQ(children, 0);
}

TEST_F(DeallocHook, RunsTheActionsOfTheClassAndOfItsSuperclass) {
  [[[HookedChild alloc] init] release];
  EXPECT_EQ(parents, 1);
  EXPECT_EQ(children, 1);
}

TEST_F(DeallocHook, RunsTheActionForAnObjectThatInheritsTheDealloc) {
  [[[HookedHeir alloc] init] release];
  EXPECT_EQ(parents, 1);
}

TEST_F(DeallocHook, RunsAnActionThatIsAddedAgainOnce) {
  addDeallocHook([HookedParent class], countParent);
  [[[HookedParent alloc] init] release];
  EXPECT_EQ(parents, 1);
}
