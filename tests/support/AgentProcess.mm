#import "tests/support/AgentProcess.h"

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <system_error>

namespace {

NSString *nsString(const std::string &text) {
  return [NSString stringWithUTF8String:text.c_str()];
}

/// Links the scripted agent's program and does not copy it where possible: it is large, and
/// hundreds are started. The temporary folder may be on another file system; then it is copied
/// there once.
void linkProgram(const std::filesystem::path &link) {
  namespace fs = std::filesystem;
  std::error_code error;
  fs::create_hard_link(SCRIPTED_AGENT, link, error);
  if (!error) return;
  const fs::path copy = fs::temp_directory_path() / fs::path(SCRIPTED_AGENT).filename();
  fs::copy_file(SCRIPTED_AGENT, copy, fs::copy_options::update_existing);
  fs::create_hard_link(copy, link);
}

/// An application bundle around the scripted agent's program, with the wanted identifier.
std::string makeBundle(const std::string &folder, const std::string &identifier) {
  namespace fs = std::filesystem;
  const fs::path bundle = fs::path(folder) / "Agent.app";
  fs::create_directories(bundle / "Resources");
  const fs::path program = bundle / "Agent";
  linkProgram(program);
  std::ofstream info(bundle / "Resources" / "Info-gnustep.plist");
  info << "{ NSExecutable = Agent; ";
  if (identifier != "-") info << "CFBundleIdentifier = \"" << identifier << "\"; ";
  info << "}\n";
  return program;
}

}  // namespace

AgentProcess::AgentProcess(const Options &options) : folder_(newTemporaryFolder()) {
  setScript([NSDictionary dictionary]);
  process_ = std::make_unique<ChildProcess>(
      std::vector<std::string>{makeBundle(folder_, options.identifier), folder_ + "/script",
                               folder_ + "/record", options.name,
                               std::to_string(options.registerAfterSeconds)},
      options.environment);
  const bool isReachable = options.name != "-" && options.registerAfterSeconds == 0;
  if (!process_->waitForOutput(isReachable ? "registered" : "running")) {
    throw std::runtime_error("the scripted agent did not start: " + process_->output());
  }
}

void AgentProcess::setScript(NSDictionary *script) const {
  static int number = 0;
  NSMutableDictionary *const numbered = [NSMutableDictionary dictionaryWithDictionary:script];
  [numbered setObject:[NSNumber numberWithInt:++number] forKey:@"number"];
  NSData *const data = [NSJSONSerialization dataWithJSONObject:numbered options:0 error:nullptr];
  [data writeToFile:nsString(folder_ + "/script") atomically:YES];
}

void AgentProcess::answer(NSString *operation, id reply) const {
  setScript(@{operation : @{@"reply" : reply}});
}

NSArray *AgentProcess::calls() const {
  return callsSince(0);
}

std::size_t AgentProcess::record() const {
  return std::filesystem::file_size(folder_ + "/record");
}

NSArray *AgentProcess::callsSince(std::size_t record) const {
  NSFileHandle *const file =
      [NSFileHandle fileHandleForReadingAtPath:nsString(folder_ + "/record")];
  [file seekToFileOffset:record];
  NSString *const text = [[[NSString alloc] initWithData:[file readDataToEndOfFile]
                                                encoding:NSUTF8StringEncoding] autorelease];
  NSMutableArray *const lines =
      [[[text componentsSeparatedByString:@"\n"] mutableCopy] autorelease];
  // What follows the last line break is a partly written line.
  [lines removeLastObject];
  NSMutableArray *const calls = [NSMutableArray array];
  for (NSString *line in lines) {
    [calls addObject:[NSJSONSerialization
                         JSONObjectWithData:[line dataUsingEncoding:NSUTF8StringEncoding]
                                    options:0
                                      error:nullptr]];
  }
  return calls;
}

NSArray *AgentProcess::lastArguments() const {
  return [[calls() lastObject] objectForKey:@"arguments"];
}

NSArray *AgentProcess::lastArguments(NSString *operation) const {
  for (NSDictionary *call in [calls() reverseObjectEnumerator]) {
    if (![[call objectForKey:@"operation"] isEqual:operation]) continue;
    return [call objectForKey:@"arguments"];
  }
  return nil;
}

NSArray *AgentProcess::operations() const {
  return [calls() valueForKey:@"operation"];
}

NSDictionary *success(id value) {
  return @{@"error" : @0, @"value" : value};
}

NSDictionary *refusal(int error, NSString *message) {
  return @{@"error" : [NSNumber numberWithInt:error], @"errorMessage" : message};
}
