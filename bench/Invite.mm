// Inviting fifty people to a folder, from the press of the button until the success is shown,
// against the bare calls that give them access.
#import <AppKit/AppKit.h>

#import "agent/KRVProxy.h"
#import "app/ContextMenuAppAppDelegate.h"
#include "bench/support/Results.h"
#include "bench/support/Setting.h"
#import "windows/share/BrisvaleTabController.h"
#import "windows/share/InviteTabController.h"

namespace {

constexpr unsigned kPeople = 50;

NSString *addressOf(unsigned person) {
  return [NSString stringWithFormat:@"user%u@example.org", person];
}

NSArray *addresses() {
  NSMutableArray *const all = [NSMutableArray array];
  for (unsigned i = 0; i < kPeople; ++i) [all addObject:addressOf(i)];
  return all;
}

NSDictionary *script() {
  NSDictionary *const person =
      @{@"userfname" : @"anna", @"userlname" : @"meier", @"useremail" : @"a@example.org"};
  return @{
    @"getEmployeeAddressBook" : @{@"contacts" : [NSNumber numberWithUnsignedInt:kPeople]},
    @"grantAccess:::::::::" : @{@"reply" : success(person)},
    @"getAccess::" : @{@"reply" : success(@[])}
  };
}

id<KRVProxy> agentProxy() {
  return (id)[NSConnection rootProxyForConnectionWithRegisteredName:@"KRVSyncAgent" host:nil];
}

void giveAccess(id<KRVProxy> agent, NSString *address) {
  // clang-format off
  NSDictionary *const reply = [agent grantAccess:address:@"folder":YES:NO:NO:YES:YES:YES:@""];
  // clang-format on
  if ([[reply objectForKey:@"error"] boolValue]) throw std::runtime_error("refused");
}

/// For each person the call and a look at whether it was refused, and nothing else.
void callBarely() {
  @autoreleasepool {
    id<KRVProxy> const agent = agentProxy();
    for (NSString *address in addresses()) giveAccess(agent, address);
  }
}

/// The same requests as ours: the agent is looked up in front of each call, and the list of the
/// people is asked for twice at the end.
void exchangeBarely() {
  @autoreleasepool {
    for (NSString *address in addresses()) giveAccess(agentProxy(), address);
    for (int i = 0; i < 2; ++i) {
      // clang-format off
      NSDictionary *const reply = [agentProxy() getAccess:@"folder":YES];
      // clang-format on
      if ([[reply objectForKey:@"value"] count] != 0) throw std::runtime_error("a strange list");
    }
  }
}

NSTokenField *recipientsIn(BrisvaleTabController *window) {
  for (NSView *view in [[[[window shareFolderTab] tabViewItemAtIndex:1] view] subviews]) {
    if ([view isKindOfClass:[NSTokenField class]]) return static_cast<NSTokenField *>(view);
  }
  throw std::runtime_error("no field for the recipients");
}

/// Returns the milliseconds of an invitation in a window of its own.
double inviteAll() {
  @autoreleasepool {
    BrisvaleTabController *const window = [[BrisvaleTabController alloc] init];
    [window selectTabAtPosition:1];
    [[window window] makeKeyAndOrderFront:nil];
    InviteTabController *const tab = [window sendInviteTab];
    [tab setFilePath:@"folder"];
    [tab setIsFileId:YES];
    NSTokenField *const recipients = recipientsIn(window);
    [recipients setStringValue:[addresses() componentsJoinedByString:@","]];
    [[window window] display];
    const double milliseconds = millisecondsOf([&] {
      [tab sendInvite:nil];
      [[tab modalWindow] display];
    });
    const bool succeeded = [[tab modalWindow] isVisible] && [[recipients stringValue] length] == 0;
    [[window window] close];
    if (!succeeded) throw std::runtime_error("the invitation failed");
    return milliseconds;
  }
}

}  // namespace

int main(int argc, char *argv[]) {
  const int rounds = prepareBenchmark(argc, argv, 21);
  @autoreleasepool {
    [NSClassFromString([[[NSBundle mainBundle] infoDictionary] objectForKey:@"NSPrincipalClass"])
        sharedApplication];
    [NSBundle loadNibNamed:@"MainMenu" owner:NSApp];
    const AgentProcess agent;
    agent.setScript(script());
    [static_cast<ContextMenuAppAppDelegate *>([NSApp delegate]) getAddressBookForShareFolder];
    inviteAll();
    const auto ours = [] { return inviteAll(); };
    Results exchanges("invite 50", "ms");
    addInterleaved(exchanges, rounds, ours, [] { return millisecondsOf(exchangeBarely); });
    exchanges.print();
    Results calls("invite 50, calls alone", "ms");
    addInterleaved(calls, rounds, ours, [] { return millisecondsOf(callBarely); });
    calls.print();
  }
  return 0;
}
