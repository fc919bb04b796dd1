#import "share/PermissionTabController.h"

#import "send/ResultSheet.h"
#import "share/SharedWith.h"

@implementation PermissionTabController

@synthesize permissionType;
@synthesize filePath;
@synthesize isFileId;
@synthesize ourMainWindow;
@synthesize modalWindow;
@synthesize modalWindowText;

- (id)init {
  if ((self = [super init])) isFileId = YES;
  return self;
}

- (void)dealloc {
  [permissionType release];
  [filePath release];
  [ourMainWindow release];
  [super dealloc];
}

#pragma mark - The list

- (NSMutableArray *)personList {
  return personList;
}

- (void)setPersonList:(NSMutableArray *)list {
  personList = list;
}

- (void)insertObject:(SharedWith *)person inPersonListAtIndex:(NSUInteger)index {
  [personList insertObject:person atIndex:index];
}

- (void)removeObjectFromPersonListAtIndex:(NSUInteger)index {
  [personList removeObjectAtIndex:index];
}

#pragma mark - Success sheet

- (void)showSuccessModalWindow:(NSString *)key {
  showSuccess({modalWindow, modalWindowText, ourMainWindow}, self, key);
}

- (void)killModalWindow:(NSTimer *)timer {
  endSuccess(timer);
}

@end
