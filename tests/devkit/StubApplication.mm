#import "tests/devkit/StubApplication.h"

@implementation StubApplication

- (instancetype)initVending:(id)object {
  self = [super init];
  if (self) {
    _calls = [[NSMutableArray alloc] init];
    _connection = [[NSConnection alloc] init];
    [_connection setRootObject:object ? object : self];
    [_connection registerName:@"ContextMenuPlugin"];
  }
  return self;
}

- (instancetype)init {
  return [self initVending:nil];
}

- (void)dealloc {
  [_connection invalidate];
  [_connection release];
  [_calls release];
  [super dealloc];
}

- (void)breakConnectionDuringCall {
  _breaksConnection = YES;
}

- (NSArray *)calls {
  return _calls;
}

- (void)note:(NSString *)call {
  [_calls addObject:call];
  if (_breaksConnection) [_connection invalidate];
}

#pragma mark - ContextMenuService

// clang-format off

- (void)copyLinkToClipboard:(NSString *)item:(BOOL)isFolder:(BOOL)unused {
  [self note:[NSString stringWithFormat:@"copy|%@|%d|%d", item, isFolder, unused]];
}

- (void)LaunchSendCopyLinkTab:(NSString *)item
                             :(NSString *)displayName
                             :(BOOL)isMyDocs
                             :(BOOL)isFolder
                             :(BOOL)tabPosition
                             :(BOOL)isFileId {
  [self note:[NSString stringWithFormat:@"send|%@|%@|%d|%d|%d|%d", item, displayName, isMyDocs,
                                        isFolder, tabPosition, isFileId]];
}

- (void)LaunchShareFolderTab:(NSString *)item
                            :(NSString *)unusedDisplayName
                            :(BOOL)unused
                            :(BOOL)tabPosition
                            :(BOOL)isFileId {
  [self note:[NSString stringWithFormat:@"share|%@|%@|%d|%d|%d", item, unusedDisplayName, unused,
                                        tabPosition, isFileId]];
}

// clang-format on

@end
