#import "send/Alerts.h"

NSAlert *alertWithTexts(NSString *message, NSString *informative) {
  NSAlert *const alert = [[[NSAlert alloc] init] autorelease];
  [alert setIcon:[NSImage imageNamed:@"025_Ostrel_Combo_Mac.icns"]];
  [alert setMessageText:message ?: @""];
  [alert setInformativeText:informative ?: @""];
  return alert;
}

void runModally(NSAlert *alert) {
  [NSApp activateIgnoringOtherApps:YES];
  [alert runModal];
}
