#import "send/Alerts.h"

#import "send/LocalizedText.h"
#import "send/TextFormat.h"

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
  if (window == nil) return;
  [alert beginSheetModalForWindow:window
                    modalDelegate:delegate
                   didEndSelector:nullptr
                      contextInfo:nullptr];
}

void runModally(NSAlert *alert) {
  [NSApp activateIgnoringOtherApps:YES];
  [alert runModal];
}
