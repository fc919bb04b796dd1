// How long a list of 5,000 addresses delays the next event: pasted into the recipients field, and
// when the field is left by Tab and its value asked for. Against the same text in the message
// field.
#import <AppKit/AppKit.h>

#include <string>

#include <unistd.h>

#include "bench/support/InProcess.h"
#include "bench/support/Results.h"
#include "bench/support/Setting.h"
#import "plugin/ContextMenuProxy.h"
#include "tests/support/CapturedLog.h"
#import "windows/Recipients.h"

namespace {

constexpr int kAddresses = 5'000;

NSString *addresses() {
  NSMutableString *const list = [NSMutableString string];
  for (int i = 0; i < kAddresses; ++i) [list appendFormat:@"person%d@example.org, ", i];
  return list;
}

void show(NSWindow *window) {
  [window displayIfNeeded];
  [window flushWindow];
}

/// The first editable view of a class.
template <class View>
View *editableIn(NSView *view, Class cls) {
  if ([view isKindOfClass:cls] && [static_cast<View *>(view) isEditable]) {
    return static_cast<View *>(view);
  }
  for (NSView *subview in [view subviews]) {
    if (View *const found = editableIn<View>(subview, cls)) return found;
  }
  return nil;
}

/// Pastes the text of the clipboard into the field that is edited.
double millisecondsOfPasting(NSWindow *window) {
  return millisecondsOf([&] {
    @autoreleasepool {
      [static_cast<NSTextView *>([window firstResponder]) paste:nil];
      show(window);
    }
  });
}

double millisecondsOfLeaving(NSWindow *window) {
  return millisecondsOf([&] {
    @autoreleasepool {
      [window selectNextKeyView:nil];
      show(window);
    }
  });
}

}  // namespace

int main(int argc, char *argv[]) {
  const int rounds = prepareBenchmark(argc, argv, 5);
  // The application logs when windows open and close; its lines must not mix with the results.
  const CapturedLog log;
  @autoreleasepool {
    const AgentProcess agent;
    launchInProcess();
    ContextMenuProxy *const proxy = [[[ContextMenuProxy alloc] init] autorelease];
    // clang-format off
    [proxy LaunchSendCopyLinkTab:@"id":@"name":NO:NO:0:YES];
    // clang-format on
    handleEventsUntil([] { return openWindow() != nil && [openWindow() isKeyWindow]; });
    NSWindow *const window = openWindow();
    NSView *const content = [window contentView];
    NSTokenField *const recipients = editableIn<NSTokenField>(content, [NSTokenField class]);
    NSTextView *const message = editableIn<NSTextView>(content, [NSTextView class]);
    [[NSPasteboard generalPasteboard] declareTypes:@[ NSStringPboardType ] owner:nil];
    [[NSPasteboard generalPasteboard] setString:addresses() forType:NSStringPboardType];

    Results pasting("pasting 5,000 recipients", "ms");
    Results leaving("leaving 5,000 recipients", "ms");
    Results checking("checking 5,000 recipients", "ms");
    const auto plain = [&] {
      [message setString:@""];
      [window makeFirstResponder:message];
      return millisecondsOfPasting(window);
    };
    addInterleaved(
        pasting, rounds,
        [&] {
          [recipients setStringValue:@""];
          [window makeFirstResponder:recipients];
          const double milliseconds = millisecondsOfPasting(window);
          leaving.addValue(millisecondsOfLeaving(window));
          checking.addValue(
              millisecondsOf([&] { (void)firstInvalidRecipient([recipients stringValue]); }));
          return milliseconds;
        },
        plain);
    pasting.print();
    leaving.print();
    checking.print();
  }
  _exit(0);
}
