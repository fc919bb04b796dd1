#import "windows/Alerts.h"

#import "text/LocalizedText.h"
#import "windows/Controls.h"

namespace {

NSString *const kIconName = @"025_Ostrel_Combo_Mac.icns";

/// nil when the application's resources lack it: the alert then has the platform's icon.
NSImage *alertIcon() {
  NSImage *const icon = [NSImage imageNamed:kIconName];
  if (icon == nil) NSLog(@"No image \"%@\"", kIconName);
  return icon;
}

}  // namespace

NSAlert *alertWithTexts(NSString *message, NSString *informative) {
  NSAlert *const alert = [[[NSAlert alloc] init] autorelease];
  [alert setIcon:alertIcon()];
  [alert setMessageText:message ?: @""];
  [alert setInformativeText:informative ?: @""];
  return alert;
}

NSAlert *cannotConnectAlert() {
  return alertWithTexts(formatted(localizedText(@"cannotConnectToBrisvaleMessageTextKey")),
                        localizedText(@"cannotConnectToBrisvaleInformativeTextKey"));
}

void showAsSheet(NSAlert *alert, NSWindow *window, id delegate) {
  askAsSheet(alert, window, delegate, nullptr, nullptr);
}

void askAsSheet(NSAlert *alert, NSWindow *window, id delegate, SEL didEnd, void *context) {
  if (window == nil) return;
  discardPendingInput();
  [alert beginSheetModalForWindow:window
                    modalDelegate:delegate
                   didEndSelector:didEnd
                      contextInfo:context];
}

void runModally(NSAlert *alert) {
  discardPendingInput();
  // The application may be hidden, and would wait unseen for an answer.
  [NSApp unhideWithoutActivation];
  [alert runModal];
}
