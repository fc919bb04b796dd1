// scripted-file-manager SCRIPT
//
// A file manager under the name of the real one, GWorkspace, that vends only its selection and does
// what a script says (tests/support/agent/Script.h) when it is asked for that. Prints "registered"
// when it is reachable and "asked" for each question. Serves until it is killed.
#import <Foundation/Foundation.h>

#include <cstdio>

#import "tests/support/agent/Script.h"

namespace {

void say(const char *line) {
  std::puts(line);
  std::fflush(stdout);
}

}  // namespace

@interface ScriptedFileManager : NSObject {
 @public
  Script *script;
}
@end

@implementation ScriptedFileManager

- (NSArray *)selectedPaths {
  say("asked");
  return actOut([script nextEntryForOperation:@"selectedPaths"]);
}

@end

int main(int argc, char *argv[]) {
  if (argc < 2) return 2;
  @autoreleasepool {
    ScriptedFileManager *const fileManager = [[ScriptedFileManager alloc] init];
    fileManager->script = [[Script alloc] initWithPath:[NSString stringWithUTF8String:argv[1]]];
    NSConnection *const connection = [[NSConnection alloc] init];
    [connection setRootObject:fileManager];
    if (![connection registerName:@"GWorkspace"]) return 1;
    say("registered");
    for (;;) {
      @autoreleasepool {
        [[NSRunLoop currentRunLoop] runMode:NSDefaultRunLoopMode beforeDate:[NSDate distantFuture]];
      }
    }
  }
}
