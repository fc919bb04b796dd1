#import "tests/support/FileManagerProcess.h"

#include <stdexcept>

FileManagerProcess::FileManagerProcess()
    : script_(newTemporaryFolder() + "/script"), process_({SCRIPTED_FILE_MANAGER, script_}) {
  select([NSArray array]);
  if (!process_.waitForOutput("registered")) {
    throw std::runtime_error("the scripted file manager did not start: " + process_.output());
  }
}

void FileManagerProcess::select(NSArray *paths) const {
  setScript(@{@"reply" : paths});
}

void FileManagerProcess::setScript(NSDictionary *entry) const {
  NSData *const data = [NSJSONSerialization dataWithJSONObject:@{@"selectedPaths" : entry}
                                                       options:0
                                                         error:nullptr];
  [data writeToFile:[NSString stringWithUTF8String:script_.c_str()] atomically:YES];
}
