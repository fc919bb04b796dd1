// Showing the access list of a folder that is shared with a thousand people, against reading the
// same rows entry by entry and key by key.
#import <AppKit/AppKit.h>

#import "agent/KRVProxy.h"
#import "app/ContextMenuAppAppDelegate.h"
#include "bench/support/Results.h"
#include "bench/support/Setting.h"
#import "windows/share/AccessLevel.h"
#import "windows/share/BrisvaleTabController.h"
#import "windows/share/PermissionTabController.h"
#import "windows/share/SharedWith.h"

namespace {

constexpr unsigned kPeople = 1000;

NSArray *accessEntries() {
  NSMutableArray *const entries = [NSMutableArray array];
  for (unsigned i = 0; i < kPeople; ++i) {
    NSNumber *const mayWrite = [NSNumber numberWithBool:i % 2 == 0];
    [entries addObject:@{
      @"type" : @"user",
      @"candownload" : @1,
      @"canupload" : mayWrite,
      @"candelete" : mayWrite,
      @"isowner" : @0,
      @"userfname" : [NSString stringWithFormat:@"first%u", i],
      @"userlname" : @"last",
      @"useremail" : [NSString stringWithFormat:@"p%u@example.org", i]
    }];
  }
  return entries;
}

/// The yardstick: the same rows, each entry asked for each of its fields. Nothing is shown.
void readSingly() {
  @autoreleasepool {
    id<KRVProxy> const agent =
        (id)[NSConnection rootProxyForConnectionWithRegisteredName:@"KRVSyncAgent" host:nil];
    // clang-format off
    NSArray *const entries = [[agent getAccess:@"folder":YES] objectForKey:@"value"];
    // clang-format on
    NSMutableArray *const rows = [NSMutableArray array];
    const NSUInteger count = [entries count];
    for (NSUInteger i = 0; i < count; ++i) {
      @autoreleasepool {
        NSDictionary *const entry = [entries objectAtIndex:i];
        SharedWith *const row =
            rowFor({.type = [entry objectForKey:@"type"],
                    .canDownload = [[entry objectForKey:@"candownload"] boolValue],
                    .canUpload = [[entry objectForKey:@"canupload"] boolValue],
                    .canDelete = [[entry objectForKey:@"candelete"] boolValue],
                    .isOwner = [[entry objectForKey:@"isowner"] boolValue],
                    .firstName = [entry objectForKey:@"userfname"],
                    .lastName = [entry objectForKey:@"userlname"],
                    .address = [entry objectForKey:@"useremail"]});
        if (row != nil) [rows addObject:row];
      }
    }
    if ([rows count] != kPeople) throw std::runtime_error("the yardstick's rows are not complete");
  }
}

/// From giving the tab its folder until the rows are on the screen.
void showList(BrisvaleTabController *window) {
  @autoreleasepool {
    PermissionTabController *const tab = [window givePermissionTab];
    NSArray *const former = [tab personList];
    [tab setFilePath:@"folder"];
    while ([tab personList] == former) {
      @autoreleasepool {
        [[NSRunLoop currentRunLoop] runMode:NSDefaultRunLoopMode
                                 beforeDate:[NSDate dateWithTimeIntervalSinceNow:0.01]];
      }
    }
    [[window window] display];
    if ([[tab personList] count] != kPeople) throw std::runtime_error("the list is not complete");
  }
}

}  // namespace

int main(int argc, char *argv[]) {
  const int rounds = prepareBenchmark(argc, argv, 11);
  @autoreleasepool {
    [NSClassFromString([[[NSBundle mainBundle] infoDictionary] objectForKey:@"NSPrincipalClass"])
        sharedApplication];
    [NSBundle loadNibNamed:@"MainMenu" owner:NSApp];
    const AgentProcess agent;
    agent.answer(@"getAccess::", success(accessEntries()));
    BrisvaleTabController *const window = [[BrisvaleTabController alloc] init];
    [[window window] makeKeyAndOrderFront:nil];
    showList(window);
    Results results("access list 1,000", "ms");
    addInterleaved(
        results, rounds, [&] { return millisecondsOf([&] { showList(window); }); },
        [&] { return millisecondsOf([&] { readSingly(); }); });
    results.print();
  }
  return 0;
}
