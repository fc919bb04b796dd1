#import "windows/share/PermissionTabController+Showing.h"

#import "text/LocalizedText.h"
#import "windows/Controls.h"

@implementation PermissionTabController (Showing)

- (void)showFetching {
  [notSharingText setStringValue:localizedText(@"fetchingEmployeeListKey")];
  [notSharingText display];
  showBusy(spinGear);
}

- (void)showAtWork {
  showBusy(spinGear);
}

- (void)showListOrNobody {
  if ([personList count] > 0) {
    [self setListHidden:NO];
    [notSharingText setHidden:YES];
  } else {
    // Deliberately does not change what is visible.
    [notSharingText setStringValue:localizedText(@"notSharingTextMessageKey")];
  }
}

- (void)showInsteadOfList:(NSString *)text {
  [self setListHidden:YES];
  [notSharingText setHidden:NO];
  [notSharingText setStringValue:text];
}

- (void)setListHidden:(BOOL)hidden {
  [fullScrollView setHidden:hidden];
  [usersText setHidden:hidden];
}

- (void)showIdle {
  [spinGear setHidden:YES];
}

@end
