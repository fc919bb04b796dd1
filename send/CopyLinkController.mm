#import "send/CopyLinkController.h"

#import "agent/BVDataModelController.h"
#import "agent/ResultDictionary.h"

@implementation CopyLinkController

@synthesize filePath;
@synthesize isFileId;
@synthesize isFolder;

- (id)init {
  if ((self = [super init])) {
    isFileId = NO;
    isFolder = NO;
  }
  return self;
}

- (void)dealloc {
  [filePath release];
  [super dealloc];
}

// clang-format off: it takes the first anonymous argument for a part of the name.
- (NSDictionary *)getCopyLink:(NSString *)
                   unusedPath:(BOOL)notify
                             :(BOOL)askForMail
                             :(NSString *)downloads {
  (void)unusedPath;
  BVDataModelController *const link = [[[BVDataModelController alloc] init] autorelease];
  NSString *const path = [self filePath];
  const BOOL isId = [self isFileId];
  return [self isFolder] ? [link getLinkForFolder:path:notify:askForMail:downloads:isId]
                         : [link getLinkForFile:path:notify:askForMail:downloads:isId];
}
// clang-format on

- (NSString *)pasteToClipboard:(NSDictionary *)reply {
  NSPasteboard *const pasteboard = [NSPasteboard generalPasteboard];
  [pasteboard clearContents];
  if (agent::kindOfLinkReply(reply) != agent::ReplyKind::Succeeded) {
    return agent::errorMessage(reply);
  }
  NSString *const link = agent::stringOrNil([reply objectForKey:agent::kValueKey]);
  // A reply without a link is a failed write: logged, and not reported otherwise.
  NSArray *const objects = link == nil ? [NSArray array] : [NSArray arrayWithObject:link];
  const BOOL written = [pasteboard writeObjects:objects];
  NSLog(@"copy success = %d", written ? 1 : 0);
  return agent::errorText(reply);
}

@end
