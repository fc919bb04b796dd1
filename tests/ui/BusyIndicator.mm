#include <gtest/gtest.h>

#import <AppKit/AppKit.h>
#import <objc/runtime.h>

#include <string>
#include <vector>

#import "windows/Controls.h"

namespace {

std::vector<std::string> steps;

void noteFlush(id, SEL) {
  steps.push_back("transaction flushed");
}

/// A class by the name of the Mac's transactions of layers, which this platform does not have.
/// Stays registered.
void registerTransactions() {
  if (objc_lookUpClass("CATransaction") != Nil) return;
  Class const transactions = objc_allocateClassPair([NSObject class], "CATransaction", 0);
  class_addMethod(object_getClass(transactions), @selector(flush), reinterpret_cast<IMP>(noteFlush),
                  "v@:");
  objc_registerClassPair(transactions);
}

}  // namespace

@interface RecordingIndicator : NSProgressIndicator
@end

@implementation RecordingIndicator

- (void)display {
  steps.push_back([self isHidden] ? "displayed hidden" : "displayed");
  [super display];
}

@end

@interface RecordingWindow : NSWindow
@end

@implementation RecordingWindow

- (void)flushWindow {
  [super flushWindow];
  if (steps.size() == 1) steps.push_back("window flushed");
}

@end

TEST(BusyIndicator, IsOnTheScreenBeforeTheCallThatBlocks) {
  registerTransactions();
  NSWindow *const window =
      [[[RecordingWindow alloc] initWithContentRect:NSMakeRect(100, 100, 300, 200)
                                          styleMask:NSTitledWindowMask
                                            backing:NSBackingStoreBuffered
                                              defer:NO] autorelease];
  [window setReleasedWhenClosed:NO];
  NSProgressIndicator *const indicator =
      [[[RecordingIndicator alloc] initWithFrame:NSMakeRect(10, 10, 20, 20)] autorelease];
  [indicator setHidden:YES];
  [[window contentView] addSubview:indicator];
  [window orderFrontRegardless];
  steps.clear();
  showBusy(indicator);
  [indicator stopAnimation:nil];
  [window close];
  EXPECT_EQ(steps,
            (std::vector<std::string>{"displayed", "window flushed", "transaction flushed"}));
}
