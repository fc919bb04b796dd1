#import "tests/ui/WindowFixtures.h"

#include <algorithm>
#include <map>
#include <set>

#import "platform/gnustep/runtime/DeallocHook.h"

namespace {

std::map<std::string, int> &ends() {
  static std::map<std::string, int> counted;
  return counted;
}

std::set<const void *> &endedObjects() {
  static std::set<const void *> objects;
  return objects;
}

void noteEnd(id object) {
  endedObjects().insert(object);
}

void countEnd(id object) {
  ++ends()[[NSStringFromClass([object class]) UTF8String]];
}

/// The controller of the only window that can be seen.
template <class Controller>
Controller *shownController(Class cls) {
  const auto windows = WindowsWithoutAgent::visibleWindows();
  if (windows.size() != 1) return nil;
  id const controller = [windows.front() windowController];
  return [controller isKindOfClass:cls] ? controller : nil;
}

NSButton *buttonIn(NSView *view, NSString *title) {
  if ([view isKindOfClass:[NSButton class]] &&
      [[static_cast<NSButton *>(view) title] isEqualToString:title]) {
    return static_cast<NSButton *>(view);
  }
  for (NSView *subview in [view subviews]) {
    if (NSButton *const found = buttonIn(subview, title)) return found;
  }
  return nil;
}

void addTexts(NSView *view, std::vector<std::string> &texts) {
  if ([view isHidden]) return;
  if ([view isKindOfClass:[NSTextField class]]) {
    texts.push_back(text([static_cast<NSTextField *>(view) stringValue]));
  } else if ([view isKindOfClass:[NSButton class]]) {
    texts.push_back(text([static_cast<NSButton *>(view) title]));
  } else if ([view isKindOfClass:[NSTabView class]]) {
    for (NSTabViewItem *item in [static_cast<NSTabView *>(view) tabViewItems]) {
      texts.push_back(text([item label]));
    }
  }
  for (NSView *subview in [view subviews]) addTexts(subview, texts);
}

}  // namespace

WindowsWithoutAgent::WindowsWithoutAgent() {
  EXPECT_TRUE(clipboardIsFilled);
  [delegate setContextMenuFlag:YES];
}

WindowsWithoutAgent::~WindowsWithoutAgent() {
  closeWindows();
  // The next test finds the application as it is after its launch, without an address book.
  [delegate setAddressBookForShare:nil];
  [delegate setEmployeeContacts:nil];
  [proxy release];
}

Windows::~Windows() {
  // While there is an agent.
  closeWindows();
}

void WindowsWithoutAgent::closeWindows() {
  [[NSNotificationCenter defaultCenter] postNotificationName:@"newInstanceofWindowOpened"
                                                      object:nil];
}

SendAndCopyTabController *WindowsWithoutAgent::openSend(int tab, const SendOptions &options) {
  // clang-format off
  [proxy LaunchSendCopyLinkTab:options.item:options.name:options.isMyDocs:options.isFolder
                              :static_cast<BOOL>(tab):options.isFileId];
  // clang-format on
  handlePostedEvents();
  return shownController<SendAndCopyTabController>([SendAndCopyTabController class]);
}

SendAndCopyTabController *WindowsWithoutAgent::openSend(int tab) {
  return openSend(tab, {});
}

BrisvaleTabController *WindowsWithoutAgent::openShare(int tab, NSString *item) {
  // clang-format off
  [proxy LaunchShareFolderTab:item:@"unused":YES:static_cast<BOOL>(tab):YES];
  // clang-format on
  handlePostedEvents();
  return shownController<BrisvaleTabController>([BrisvaleTabController class]);
}

std::vector<NSWindow *> WindowsWithoutAgent::visibleWindows() {
  std::vector<NSWindow *> visible;
  for (NSWindow *window in [NSApp windows]) {
    if ([window isVisible] && [window windowController] != nil) visible.push_back(window);
  }
  return visible;
}

NSButton *WindowsWithoutAgent::button(NSWindow *window, NSString *title) {
  return buttonIn([window contentView], title);
}

std::vector<std::string> WindowsWithoutAgent::textsIn(NSWindow *window) {
  std::vector<std::string> texts;
  addTexts([window contentView], texts);
  return texts;
}

long WindowsWithoutAgent::linesInLog(const std::string &line) const {
  const auto lines = log.lines();
  return std::count(lines.begin(), lines.end(), line);
}

int WindowsWithoutAgent::ended(Class cls) {
  return ends()[[NSStringFromClass(cls) UTF8String]];
}

void WindowsWithoutAgent::countEndsOf(Class cls) {
  addDeallocHook(cls, countEnd);
  ends()[[NSStringFromClass(cls) UTF8String]] = 0;
}

std::function<bool()> WindowsWithoutAgent::endOf(id object) {
  addDeallocHook([object class], noteEnd);
  const void *const address = object;
  endedObjects().erase(address);
  return [address] { return endedObjects().contains(address); };
}
