#import "windows/share/AccessListLoad.h"

#import "agent/BVDataModelController.h"
#import "agent/BackgroundRequestLock.h"
#import "agent/Records.h"
#import "agent/ResultDictionary.h"
#import "windows/share/AccessLevel.h"
#import "windows/share/PermissionTabController.h"

@implementation AccessListLoad

@synthesize number;
@synthesize pathOrId;
@synthesize isFileId;
@synthesize people;
@synthesize isAnswered;

- (id)init {
  if ((self = [super init])) people = [[NSMutableArray alloc] init];
  return self;
}

- (void)dealloc {
  [pathOrId release];
  [people release];
  [super dealloc];
}

- (void)askAgent {
  agent::withBackgroundRequestLock([&] { [self askAgentUnderLock]; });
}

- (void)askAgentUnderLock {
  BVDataModelController *const agent = [[[BVDataModelController alloc] init] autorelease];
  // clang-format off
  NSDictionary *const reply = [agent getAccess:pathOrId:isFileId];
  // clang-format on
  if ([reply count] == 0) return;
  isAnswered = agent::visitAccessEntries([reply objectForKey:agent::kValueKey],
                                         [self](const agent::AccessEntry &entry) {
                                           if (SharedWith *const row = rowFor(entry)) {
                                             [people addObject:row];
                                           }
                                         });
}

@end

@implementation BackgroundLoad

+ (void)startForTab:(PermissionTabController *)tab {
  BackgroundLoad *const load = [[[BackgroundLoad alloc] init] autorelease];
  load->_tab = [tab retain];  // until releaseTab
  [load performSelectorInBackground:@selector(run) withObject:nil];
}

- (void)run {
  @autoreleasepool {
    // Drained before the tab is released, because objects in the pool may retain the tab.
    @autoreleasepool {
      [_tab refershManagePermissionsView];
    }
    // Between two events: the main thread may be inside an action of this tab, waiting for the
    // agent.
    [self performSelectorOnMainThread:@selector(releaseTab)
                           withObject:nil
                        waitUntilDone:YES
                                modes:[NSArray arrayWithObject:NSDefaultRunLoopMode]];
  }
}

- (void)releaseTab {
  [_tab release];
  _tab = nil;
}

@end
