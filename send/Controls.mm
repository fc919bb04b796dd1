#import "send/Controls.h"

#import "send/LocalizedText.h"

BOOL isChecked(NSButton *box) {
  return [box state] == NSOnState;
}

NSString *chosenDownloads(NSPopUpButton *numbers) {
  NSString *const title = [numbers titleOfSelectedItem];
  return [title isEqualToString:localizedText(@"unlimitedTitleKey")] ? @"-1" : title;
}

void showBusy(NSProgressIndicator *indicator) {
  [indicator setHidden:NO];
  [indicator startAnimation:nil];
  [indicator display];
  [[indicator window] flushWindow];
}
