#include "tests/support/HeldReply.h"

#include <filesystem>
#include <fstream>

#include "tests/support/ChildProcess.h"

HeldReply::HeldReply() : path_(newTemporaryFolder() + "/hold") {
  std::ofstream(path_).put('\n');
}

HeldReply::~HeldReply() {
  release();
}

NSDictionary *HeldReply::entry(NSDictionary *entry) const {
  NSMutableDictionary *const held = [[entry mutableCopy] autorelease];
  [held setObject:[NSString stringWithUTF8String:path_.c_str()] forKey:@"hold"];
  return held;
}

void HeldReply::release() const {
  std::filesystem::remove(path_);
}
