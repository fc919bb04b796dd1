// scripted-agent SCRIPT RECORD NAME [REGISTER_AFTER_SECONDS]
//
// Registers the connection NAME ("-" for none: an agent that runs but never registers) and serves
// until it is killed. Prints "registered" when it is reachable.
#import <Foundation/Foundation.h>

#include <cstdio>
#include <cstdlib>

#include <unistd.h>

#import "tests/support/agent/ScriptedAgent.h"

int main(int argc, char *argv[]) {
  if (argc < 4) return 2;
  @autoreleasepool {
    NSString *const record = [NSString stringWithUTF8String:argv[2]];
    [[NSFileManager defaultManager] createFileAtPath:record contents:nil attributes:nil];
    Script *const script = [[Script alloc] initWithPath:[NSString stringWithUTF8String:argv[1]]];
    ScriptedAgent *const agent = [[ScriptedAgent alloc] initWithScript:script recordPath:record];
    NSConnection *const connection = [[NSConnection alloc] init];
    [connection setRootObject:agent];
    std::puts("running");
    std::fflush(stdout);
    if (argc > 4) usleep(static_cast<useconds_t>(std::atof(argv[4]) * 1e6));
    NSString *const name = [NSString stringWithUTF8String:argv[3]];
    if (![name isEqualToString:@"-"]) {
      if (![connection registerName:name]) return 1;
      std::puts("registered");
      std::fflush(stdout);
    }
    for (;;) {
      @autoreleasepool {
        [[NSRunLoop currentRunLoop] runMode:NSDefaultRunLoopMode beforeDate:[NSDate distantFuture]];
      }
    }
  }
}
