#include "tests/ui/PermissionsTab.h"

#import <objc/runtime.h>

#include <mutex>
#include <set>

#import "platform/gnustep/runtime/DeallocHook.h"
#import "tests/support/Events.h"
#import "text/LocalizedText.h"

namespace {

NSDictionary *entry(NSString *firstName, NSString *lastName, NSString *address, BOOL mayWrite) {
  NSNumber *const write = [NSNumber numberWithBool:mayWrite];
  return @{
    @"type" : @"user",
    @"candownload" : @true,
    @"canupload" : write,
    @"candelete" : write,
    @"isowner" : @false,
    @"userfname" : firstName,
    @"userlname" : lastName,
    @"useremail" : address
  };
}

/// The buttons in a view, from the right to the left.
NSArray *buttonsIn(NSView *view) {
  NSMutableArray *const buttons = [NSMutableArray array];
  for (NSView *subview in [view subviews]) {
    [buttons addObjectsFromArray:buttonsIn(subview)];
    if ([subview isKindOfClass:[NSButton class]]) [buttons addObject:subview];
  }
  return [buttons sortedArrayUsingFunction:[](id one, id other, void *) -> NSComparisonResult {
    return NSMinX([one frame]) > NSMinX([other frame]) ? NSOrderedAscending : NSOrderedDescending;
  }
                                   context:nullptr];
}

bool viewShows(NSView *view, NSString *text) {
  if ([view respondsToSelector:@selector(stringValue)] &&
      [[static_cast<NSControl *>(view) stringValue] isEqualToString:text]) {
    return true;
  }
  if ([view isKindOfClass:[NSText class]] &&
      [[static_cast<NSText *>(view) string] isEqualToString:text]) {
    return true;
  }
  for (NSView *subview in [view subviews]) {
    if (viewShows(subview, text)) return true;
  }
  return false;
}

}  // namespace

NSDictionary *writer(NSString *firstName, NSString *lastName, NSString *address) {
  return entry(firstName, lastName, address, YES);
}

NSDictionary *reader(NSString *firstName, NSString *lastName, NSString *address) {
  return entry(firstName, lastName, address, NO);
}

NSArray *people(int count) {
  NSMutableArray *const all = [NSMutableArray array];
  for (int i = 0; i < count; ++i) {
    [all addObject:entry([NSString stringWithFormat:@"First%04d", i], @"Last",
                         [NSString stringWithFormat:@"p%04d@example.org", i], i % 2 == 0)];
  }
  return all;
}

namespace {

std::mutex tabsMutex;
/// The tabs that windows have been opened with and that have not been deallocated.
std::set<const void *> liveTabs;

void addTab(id tab) {
  const std::lock_guard<std::mutex> guard(tabsMutex);
  liveTabs.insert(tab);
}

void removeTab(id tab) {
  const std::lock_guard<std::mutex> guard(tabsMutex);
  liveTabs.erase(tab);
}

bool allTabsHaveEnded() {
  const std::lock_guard<std::mutex> guard(tabsMutex);
  return liveTabs.empty();
}

}  // namespace

PermissionsWindow::PermissionsWindow() {
  loadedDelegate();
  addDeallocHook([PermissionTabController class], removeTab);
  [NSApp unhideWithoutActivation];
}

PermissionsWindow::~PermissionsWindow() {
  finish();
}

PermissionsTab::~PermissionsTab() {
  // While there is an agent. A load retains its tab, and would ask the next test's agent.
  resumeAgent();
  finish();
  EXPECT_TRUE(handleEventsUntil(allTabsHaveEnded));
}

void PermissionsWindow::finish() {
  // The test's own references first: the window must be deallocated when it is closed.
  [pool_ drain];
  pool_ = nil;
  close();
}

void PermissionsTab::answer(NSArray *entries, NSString *operation, NSDictionary *reply) const {
  agent.setScript(@{@"getAccess::" : @{@"reply" : success(entries)}, operation : reply});
}

void PermissionsWindow::openWindow() {
  // An event of its own: its pool must not retain the controller, which deallocates itself at its
  // end.
  @autoreleasepool {
    window = [[BrisvaleTabController alloc] init];
    [window selectTabAtPosition:0];
    [[window window] makeKeyAndOrderFront:nil];
    tab = [[window givePermissionTab] retain];
    addTab(tab);
    [[window window] display];
  }
}

void PermissionsWindow::open(NSString *folder) {
  openWindow();
  [tab setFilePath:folder];
}

void PermissionsWindow::openLoaded() {
  open();
  ASSERT_TRUE(waitUntilLoaded());
}

bool PermissionsWindow::waitUntilLoaded() const {
  NSString *const fetching = localizedText(@"fetchingEmployeeListKey");
  return handleEventsUntil([&] {
    return [spinner() isHidden] &&
           ([status() isHidden] || ![[status() stringValue] isEqualToString:fetching]);
  });
}

void PermissionsWindow::close() {
  @autoreleasepool {
    [[window window] close];
    window = nil;
    [tab release];
    tab = nil;
  }
  // The application hides when its window closes, and unhides when the next one opens.
  @autoreleasepool {
    [NSApp unhideWithoutActivation];
    handlePostedEvents();
  }
}

id PermissionsWindow::outletNamed(const char *name) const {
  id object = nil;
  object_getInstanceVariable(tab, name, reinterpret_cast<void **>(&object));
  return object;
}

bool PermissionsWindow::showsList() const {
  return ![list() isHidden] && ![listTitle() isHidden] && [status() isHidden];
}

bool PermissionsWindow::showsStatus(NSString *text) const {
  return [list() isHidden] && [listTitle() isHidden] && ![status() isHidden] &&
         [[status() stringValue] isEqualToString:text];
}

NSView *PermissionsWindow::rowView(NSUInteger row) const {
  [collection() scrollRectToVisible:[collection() frameForItemAtIndex:row]];
  [[window window] display];
  return [[collection() itemAtIndex:row] view];
}

void PermissionsWindow::choose(NSUInteger row, NSString *keyOfTitle) const {
  NSPopUpButton *const popUp = accessIn(row);
  const NSInteger item = [popUp indexOfItemWithTitle:localizedText(keyOfTitle)];
  ASSERT_GE(item, 0);
  [[popUp menu] performActionForItemAtIndex:item];
}

NSWindow *PermissionsWindow::askToRemove(NSUInteger row) const {
  postClick(removeIn(row));
  EXPECT_TRUE(handleEventsUntil([&] { return sheet() != nil; }));
  return sheet();
}

void PermissionsWindow::press(NSWindow *sheet, NSUInteger index) const {
  [sheet display];
  postClick([buttonsIn([sheet contentView]) objectAtIndex:index]);
  EXPECT_TRUE(handleEventsUntil([&] { return this->sheet() != sheet; }));
}

bool PermissionsWindow::sheetShows(NSString *text) const {
  return viewShows([sheet() contentView], text);
}

NSUInteger PermissionsTab::calls(NSString *operation) const {
  NSUInteger count = 0;
  for (NSString *name in agent.operations()) {
    if ([name isEqualToString:operation]) ++count;
  }
  return count;
}
