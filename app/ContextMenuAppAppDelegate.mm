#import "app/ContextMenuAppAppDelegate.h"

#import "agent/AgentRequest.h"
#import "agent/BVDataModelController.h"
#import "plugin/ContextMenuPlugin.h"
#import "text/LocalizedText.h"

namespace {

/// One day.
constexpr NSTimeInterval kAddressBookRefreshSeconds = 86400.0;

NSString *syncedFolderOf(NSString *loginName) {
  return [[@"/Users/" stringByAppendingString:loginName] stringByAppendingString:@"/Brisvale"];
}

/// Sent to the proxy itself, without the check for a running agent: at login the agent may have
/// registered its name before it is listed among the running applications.
NSDictionary *homeFolderInfoFromAgent() {
  BVDataModelController *const agent = [[[BVDataModelController alloc] init] autorelease];
  id<KRVProxy> const proxy = [agent krvAgentProxy];
  return agent::sendRequest(
      proxy, [&] { return [proxy getHomeDirectoryInfo]; }, agent::localCopyOfDictionary);
}

}  // namespace

@implementation ContextMenuAppAppDelegate

@synthesize window;
@synthesize krvContextMenu;
@synthesize copyLink;
@synthesize sendFile;
@synthesize shareFolder;
@synthesize sendFolder;
@synthesize contextMenuFlag;
@synthesize addressBookForSend;
@synthesize addressBookForShare;
@synthesize employeeContacts;
@synthesize syncedFilePath;
@synthesize updateAddressBookTimer;
@synthesize homeFolderInfo;

/// Only used by tests: in the application the delegate lives as long as the process.
- (void)dealloc {
  [addressBookForSend release];
  [addressBookForShare release];
  [employeeContacts release];
  [syncedFilePath release];
  [homeFolderInfo release];
  [contextMenuPlugin release];
  // NOLINTNEXTLINE(clang-analyzer-osx.cocoa.Dealloc): the timer is the run loop's
  [super dealloc];
}

- (void)awakeFromNib {
  localizeMenu([NSApp mainMenu]);
  localizeMenu(krvContextMenu);
}

#pragma mark - NSApplicationDelegate

- (void)applicationDidFinishLaunching:(NSNotification *)notification {
  (void)notification;
  NSLog(@"Context Menu Application Launched for first time");
  [self getAddressBookForShareFolder];
  [self setSyncedFilePath:syncedFolderOf(NSUserName())];
  [self setContextMenuFlag:YES];
  contextMenuPlugin = [[ContextMenuPlugin alloc] init];
  updateAddressBookTimer = [NSTimer scheduledTimerWithTimeInterval:kAddressBookRefreshSeconds
                                                            target:self
                                                          selector:@selector(updateAddressBook:)
                                                          userInfo:nil
                                                           repeats:YES];
  homeFolderInfo = [[NSDictionary alloc] initWithDictionary:homeFolderInfoFromAgent()];
}

- (void)applicationDidBecomeActive:(NSNotification *)notification {
  (void)notification;
  NSLog(@"Context Menu Application Did Become Active");
  // Deliberately does nothing but read the flag.
  (void)[self contextMenuFlag];
}

#pragma mark - Hiding

- (void)hideMe {
  [NSApp hide:NSApp];
}

@end
