#import "windows/share/PersonItem.h"

#import "windows/Controls.h"
#import "windows/share/AccessLevel.h"
#import "windows/share/PermissionTabController.h"
#import "windows/share/SharedWith.h"

namespace {

/// The title of the person's present level.
NSString *titleOfLevelOf(SharedWith *person) {
  return titleOf([person accessPermission] == 1 ? AccessLevel::ReadWrite : AccessLevel::ReadOnly);
}

}  // namespace

@implementation PersonItem

- (void)setRepresentedObject:(id)person {
  [super setRepresentedObject:person];
  [static_cast<PersonRowView *>([self view]) setPerson:person];
}

- (PermissionTabController *)controller {
  return static_cast<PermissionTabController *>([[self collectionView] delegate]);
}

- (IBAction)popUpButtonSelectionDidChange:(NSPopUpButton *)popUp {
  SharedWith *const person = [self representedObject];
  NSString *const chosen = [[[popUp titleOfSelectedItem] copy] autorelease];
  // The pop-up's binding may have written the choice into the row before it sends its action. The
  // controller compares the choice with the row, so the row gets its former title back, and then
  // the pop-up, which is bound to it, the choice.
  [person setPermission:titleOfLevelOf(person)];
  [popUp selectItemWithTitle:chosen];
  [[self controller] popUpButtonSelectionDidChange:popUp];
}

- (IBAction)removeEntryClicked:(NSButton *)button {
  [[self controller] removeEntryClicked:button];
}

@end

@implementation PersonRowView

@synthesize person;

- (void)dealloc {
  [person release];
  [super dealloc];
}

- (void)setPerson:(SharedWith *)newPerson {
  if (newPerson == person) return;
  [person release];
  person = [newPerson retain];
  for (NSView *control in [self subviews]) {
    if ([control isKindOfClass:[NSTextField class]]) [control setToolTip:[person useremail]];
    // A copy of the prototype need not have its name.
    if ([control isKindOfClass:[NSPopUpButton class]]) {
      setSpokenName(control, @"personAccessDescriptionKey");
    }
  }
}

@end
