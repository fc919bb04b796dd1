#import <AppKit/AppKit.h>

#import "platform/gnustep/alerts/AlertPanel.h"
#import "platform/gnustep/alerts/AlertSheet.h"

namespace {

/// In the user's language, from the platform's own tables.
NSString *platformText(NSString *english) {
  NSBundle *const bundle = [NSBundle bundleForClass:[NSApplication class]];
  return [bundle localizedStringForKey:english value:english table:nil];
}

}  // namespace

/// Alerts with the Mac's layout. The buttons of the platform's panel work in a modal session only,
/// not in a sheet.
@interface NSAlert (Panel)
@end

// Replacing the platform's own methods is the point.
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"
@implementation NSAlert (Panel)

/// The panel with its contents, laid out on the first call as on the Mac.
- (id)window {
  return _window ?: [self layOut];
}

- (AlertPanel *)layOut {
  if (_window == nil) _window = [[AlertPanel alloc] init];
  auto *const panel = static_cast<AlertPanel *>(_window);
  if ([[self buttons] count] == 0) [self addButtonWithTitle:platformText(@"OK")];
  [panel setContents:{
                         .icon = [self icon] ?: [NSApp applicationIconImage],
                         .message = [self messageText] ?: platformText(@"Alert"),
                         .information = [self informativeText],
                         .buttons = [self buttons],
                     }];
  return panel;
}

- (NSInteger)runModal {
  if (![NSThread isMainThread]) {
    [self performSelectorOnMainThread:_cmd withObject:nil waitUntilDone:YES];
    return _result;
  }
  // The alert may be released while it is visible.
  [[self retain] autorelease];
  AlertPanel *const panel = [self layOut];
  _result = [NSApp runModalForWindow:panel];
  [panel orderOut:self];
  return _result;
}

- (void)beginSheetModalForWindow:(NSWindow *)window
                   modalDelegate:(id)delegate
                  didEndSelector:(SEL)selector
                     contextInfo:(void *)contextInfo {
  AlertSheet *const sheet = [[[AlertSheet alloc] initWithAlert:self
                                                      delegate:delegate
                                                didEndSelector:selector] autorelease];
  [NSApp beginSheet:[self layOut]
      modalForWindow:window
       modalDelegate:sheet
      didEndSelector:@selector(panelDidEnd:returnCode:contextInfo:)
         contextInfo:contextInfo];
}

@end
