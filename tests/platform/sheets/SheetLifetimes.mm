#include <malloc.h>

#import "tests/platform/sheets/SheetTest.h"

namespace {

constexpr int kCycles = 200;
/// Far less than the size of a window.
constexpr size_t kFlatBytesPerCycle = 256;

/// What this process has allocated and not freed, in bytes. (A sanitizer's build always answers 0
/// and looks for leaks itself.)
size_t allocatedBytes() {
  // Releases invalid timers (of blinking carets) that the mode retains until it runs.
  [[NSRunLoop currentRunLoop] runMode:NSModalPanelRunLoopMode beforeDate:[NSDate distantPast]];
  return mallinfo2().uordblks;
}

struct SheetLifetimes : SheetTest {
  /// Begins and ends a sheet, through the event queue.
  void cycle() {
    @autoreleasepool {
      NSWindow *const window = newWindow(NSMakeRect(0, 0, 300, 120));
      begin(window);
      begin(second);
      handlePostedEvents();
      [NSApp endSheet:window];
      [NSApp endSheet:second];
      [window release];
      delegate->ends.clear();
    }
  }
};

}  // namespace

TEST_F(SheetLifetimes, TheSheetAndItsDelegateLiveUntilTheEndAndNoLonger) {
  bool freed = false;
  const int windows = [CountedWindow liveCount];
  @autoreleasepool {
    NSWindow *const window = newWindow(NSMakeRect(0, 0, 300, 120));
    SheetDelegate *const own = [[SheetDelegate alloc] init];
    own->isFreed = &freed;
    [NSApp beginSheet:window
        modalForWindow:parent
         modalDelegate:own
        didEndSelector:@selector(sheetDidEnd:returnCode:contextInfo:)
           contextInfo:nullptr];
    [window release];
    [own release];
  }
  EXPECT_FALSE(freed);
  ASSERT_EQ([CountedWindow liveCount], windows + 1);
  @autoreleasepool {
    [NSApp endSheet:[parent attachedSheet]];
  }
  EXPECT_TRUE(freed);
  EXPECT_EQ([CountedWindow liveCount], windows);
}

TEST_F(SheetLifetimes, AParentThatClosesTakesItsSheetsAndTellsNobody) {
  begin(sheet);
  begin(second);
  [parent close];
  EXPECT_FALSE([sheet isVisible]);
  EXPECT_FALSE([second isVisible]);
  EXPECT_EQ([parent attachedSheet], nil);
  EXPECT_TRUE(delegate->ends.empty());
}

TEST_F(SheetLifetimes, AParentThatClosesTakesTheSheetsOfItsSheet) {
  begin(sheet);
  begin(second, sheet);
  [parent close];
  EXPECT_FALSE([sheet isVisible]);
  EXPECT_FALSE([second isVisible]);
}

TEST_F(SheetLifetimes, AParentThatClosesReleasesItsSheetsDelegate) {
  bool freed = false;
  @autoreleasepool {
    SheetDelegate *const own = [[[SheetDelegate alloc] init] autorelease];
    own->isFreed = &freed;
    [NSApp beginSheet:sheet
        modalForWindow:parent
         modalDelegate:own
        didEndSelector:@selector(sheetDidEnd:returnCode:contextInfo:)
           contextInfo:nullptr];
    [parent close];
  }
  EXPECT_TRUE(freed);
}

TEST_F(SheetLifetimes, EndingASheetAfterItsParentClosedDoesNothing) {
  begin(sheet);
  [parent close];
  [NSApp endSheet:sheet returnCode:1];
  EXPECT_TRUE(delegate->ends.empty());
}

TEST_F(SheetLifetimes, ATimerThatEndsTheSheetOfAClosedParentDoesNothing) {
  begin(sheet);
  [NSTimer scheduledTimerWithTimeInterval:0.01
                                   target:delegate
                                 selector:@selector(endSheetOfTimer:)
                                 userInfo:sheet
                                  repeats:NO];
  [parent close];
  EXPECT_TRUE(handleEventsUntil([this] { return delegate->ticks == 1; }));
  EXPECT_TRUE(delegate->ends.empty());
}

TEST_F(SheetLifetimes, AParentThatIsFreedTakesItsSheets) {
  const int windows = [CountedWindow liveCount];
  begin(sheet);
  begin(second);
  freeParent();
  ASSERT_EQ([CountedWindow liveCount], windows - 1);
  EXPECT_FALSE([sheet isVisible]);
  EXPECT_FALSE([sheet isSheet]);
  EXPECT_FALSE([second isVisible]);
  EXPECT_TRUE(delegate->ends.empty());
  [NSApp endSheet:sheet];
  EXPECT_TRUE(delegate->ends.empty());
}

TEST_F(SheetLifetimes, AParentClosedByTheDelegateLeavesNothing) {
  begin(sheet);
  begin(second);
  delegate->closes = parent;
  [NSApp endSheet:sheet];
  EXPECT_FALSE([sheet isVisible]);
  EXPECT_FALSE([second isVisible]);
  EXPECT_EQ(delegate->ends.size(), 1u);
}

TEST_F(SheetLifetimes, AParentFreedWhenItClosesIsFreedWithItsSheetUp) {
  const int windows = [CountedWindow liveCount];
  @autoreleasepool {
    [parent setReleasedWhenClosed:YES];
    begin(sheet);
    [parent close];
    parent = nil;
  }
  EXPECT_EQ([CountedWindow liveCount], windows - 1);
  EXPECT_FALSE([sheet isVisible]);
}

TEST_F(SheetLifetimes, AParentThatWasClosedAndReopenedCanHaveSheetsAgain) {
  begin(sheet);
  [parent close];
  [parent makeKeyAndOrderFront:nil];
  begin(sheet);
  EXPECT_EQ([parent attachedSheet], sheet);
  EXPECT_TRUE([sheet isVisible]);
}

TEST_F(SheetLifetimes, ManySheetsLeaveNoWindowsAndNoMemory) {
  for (int i = 0; i < kCycles; ++i) cycle();
  const NSUInteger windows = [[NSApp windows] count];
  const int before = [CountedWindow liveCount];
  const size_t memory = allocatedBytes();
  for (int i = 0; i < kCycles; ++i) cycle();
  EXPECT_EQ([[NSApp windows] count], windows);
  EXPECT_EQ([CountedWindow liveCount], before);
  EXPECT_LE(allocatedBytes(), memory + kCycles * kFlatBytesPerCycle);
}

TEST_F(SheetLifetimes, ManyClosedParentsLeaveNoWindows) {
  const int before = [CountedWindow liveCount];
  for (int i = 0; i < kCycles; ++i) {
    @autoreleasepool {
      NSWindow *const window = newWindow(NSMakeRect(100, 100, 400, 300));
      [window setReleasedWhenClosed:YES];
      [window makeKeyAndOrderFront:nil];
      begin(sheet, window);
      handlePostedEvents();
      [window close];
    }
  }
  EXPECT_EQ([CountedWindow liveCount], before);
  EXPECT_FALSE([sheet isVisible]);
}
