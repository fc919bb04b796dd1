#import "windows/ResultSheet.h"

#import "text/LocalizedText.h"
#import "windows/Controls.h"

namespace {

/// Long enough to read one line, short enough not to be waited for.
constexpr NSTimeInterval kSuccessSeconds = 3.0;

}  // namespace

void showSuccess(const ResultSheet &sheet, id controller, NSString *key) {
  // First, so that the three seconds do not start only after the sheet has been shown.
  [NSTimer scheduledTimerWithTimeInterval:kSuccessSeconds
                                   target:controller
                                 selector:@selector(killModalWindow:)
                                 userInfo:sheet.panel
                                  repeats:NO];
  discardPendingInput();
  [sheet.text setStringValue:localizedText(key)];
  [NSApp beginSheet:sheet.panel
      modalForWindow:sheet.window
       modalDelegate:controller
      didEndSelector:nullptr
         contextInfo:nullptr];
  [NSApp unhideWithoutActivation];
  [sheet.window makeKeyAndOrderFront:controller];
  [NSApp activateIgnoringOtherApps:YES];
}

void endSuccess(NSTimer *timer) {
  NSWindow *const panel = [timer userInfo];
  [panel orderOut:nil];
  [NSApp endSheet:panel];
}
