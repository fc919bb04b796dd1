#import "windows/share/PermissionTabController.h"

#import "text/LocalizedText.h"
#import "windows/Controls.h"
#import "windows/RequestSuspension.h"
#import "windows/share/AccessListLoad.h"
#import "windows/share/PermissionTabController+Showing.h"
#import "windows/share/SharedWith.h"

@implementation PermissionTabController

@synthesize permissionType;
@synthesize filePath;
@synthesize isFileId;
@synthesize ourMainWindow;
@synthesize modalWindow;
@synthesize modalWindowText;

- (id)init {
  if ((self = [super init])) {
    [[NSNotificationCenter defaultCenter] addObserver:self
                                             selector:@selector(listenNotification:)
                                                 name:@"UserAddedToShareFolder"
                                               object:nil];
    isFileId = YES;
  }
  return self;
}

- (void)awakeFromNib {
  const NSKeyValueObservingOptions both =
      NSKeyValueObservingOptionNew | NSKeyValueObservingOptionOld;
  [self addObserver:self forKeyPath:@"filePath" options:both context:nullptr];
  observesFilePath = YES;
  setSpokenName(collectionViewForAllEntries, @"usersTextKey");
  setSpokenName(spinGear, @"busyDescriptionKey");
}

/// On the main thread, even when a load has outlived the window (see AccessListLoad.h).
- (void)dealloc {
  if (observesFilePath) [self removeObserver:self forKeyPath:@"filePath"];
  [permissionType release];
  [filePath release];
  [ourMainWindow release];
  [loadedList release];
  [personInQuestion release];
  [super dealloc];
}

#pragma mark - The window

/// The outlets do not retain what they point to, which ends with the window.
- (void)disconnectFromWindow {
  [[NSNotificationCenter defaultCenter] removeObserver:self
                                                  name:@"UserAddedToShareFolder"
                                                object:nil];
  [spinGear stopAnimation:nil];
  spinGear = nil;
  nameofPerson = nil;
  removeEntry = nil;
  arrayController = nil;
  currView = nil;
  collectionViewForAllEntries = nil;
  fullScrollView = nil;
  usersText = nil;
  notSharingText = nil;
  permissionTab = nil;
  [self setPermissionType:nil];
  [super disconnectFromWindow];
}

#pragma mark - The list

- (NSMutableArray *)personList {
  return personList;
}

- (void)setPersonList:(NSMutableArray *)list {
  // Deliberately neither copied nor retained: see the header.
  personList = list;
}

- (void)insertObject:(SharedWith *)person inPersonListAtIndex:(NSUInteger)index {
  [personList insertObject:person atIndex:index];
}

- (void)removeObjectFromPersonListAtIndex:(NSUInteger)index {
  [personList removeObjectAtIndex:index];
}

#pragma mark - Loading

- (void)observeValueForKeyPath:(NSString *)keyPath
                      ofObject:(id)object
                        change:(NSDictionary *)change
                       context:(void *)context {
  (void)keyPath;
  (void)object;
  (void)change;
  (void)context;
  [BackgroundLoad startForTab:self];
}

- (void)listenNotification:(NSNotification *)notification {
  (void)notification;
  // The list is loaded on the main thread, which may still be inside the invitation.
  const RequestSuspension suspension;
  [self refershManagePermissionsView];
}

- (void)refershManagePermissionsView {
  @autoreleasepool {
    AccessListLoad *const load = [[[AccessListLoad alloc] init] autorelease];
    [self onMainThread:@selector(beginLoad:) with:load];
    [load askAgent];
    [self onMainThread:@selector(showLoad:) with:load];
  }
}

/// Runs a step of a load on the main thread and returns when it is done. Only between two events:
/// the list must not change while a row's pop-up tracks the mouse, or while an action waits for the
/// agent. The main thread itself never waits for a load.
- (void)onMainThread:(SEL)step with:(AccessListLoad *)load {
  [self performSelectorOnMainThread:step
                         withObject:load
                      waitUntilDone:YES
                              modes:[NSArray arrayWithObject:NSDefaultRunLoopMode]];
}

- (void)beginLoad:(AccessListLoad *)load {
  newestLoad += 1;
  [load setNumber:newestLoad];
  [load setPathOrId:[self filePath]];
  [load setIsFileId:[self isFileId]];
  [self showFetching];
}

- (void)showLoad:(AccessListLoad *)load {
  // The list of another folder, or of the time before an invitation.
  if ([load number] != newestLoad) return;
  if ([load isAnswered]) {
    [self exchangeList:[load people]];
    [self showListOrNobody];
  } else {
    [self showInsteadOfList:localizedText(@"cannotConnectToBrisvaleNowTextKey")];
  }
  [self showIdle];
}

- (void)exchangeList:(NSMutableArray *)people {
  // The former list must live until the array controller has the new one. Retained here for a tab
  // without an array controller, or whose array controller has been deallocated.
  NSMutableArray *const former = loadedList;
  loadedList = [people retain];
  [self setPersonList:people];
  [former release];
}

@end
