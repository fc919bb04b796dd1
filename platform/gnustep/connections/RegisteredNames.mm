#import "platform/gnustep/connections/RegisteredNames.h"

#include <fcntl.h>
#include <poll.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/gnustep/connections/FileWatch.h"
#include "platform/gnustep/connections/PortFiles.h"
#include "platform/gnustep/connections/TemporaryFolder.h"

// Not in the platform's headers.
@interface NSMessagePortNameServer (Files)
+ (NSDistributedLock *)_fileLock;
+ (NSString *)_pathForName:(NSString *)name;
+ (BOOL)_livePort:(NSString *)path;
@end
@interface NSMessagePort (Files)
- (const unsigned char *)_name;
- (int)_listener;
@end

namespace {

/// Retries without a delay, because whoever removes a folder may still be removing.
constexpr int kTries = 5;

constexpr NSTimeInterval kFirstRetrySeconds = 1;
constexpr NSTimeInterval kLastRetrySeconds = 60;

enum class State { Intact, Lost, Taken };

struct RegisteredName {
  NSString *name;  // retained
  NSMessagePort *port;
  platform::PortFiles files;
  platform::FileIdentity socket;
  State state = State::Intact;
  State loggedState = State::Intact;
  bool wasLost = false;
};

bool hasSocket(const RegisteredName &registered) {
  return registered.socket != platform::FileIdentity() &&
         registered.socket == platform::identityOf(registered.files.socket);
}

bool isIntact(const RegisteredName &registered) {
  return hasSocket(registered) && platform::holdsOwnName(registered.files);
}

/// The parent of the folders of ports and names.
std::string temporaryFolderOf(const platform::PortFiles &files) {
  std::string folder = files.socket;
  for (int i = 0; i < 3; ++i) folder.resize(folder.rfind('/'));
  return folder;
}

/// The platform accepts when the run loop reports a connection, which acceptWaiting may have
/// accepted already. A blocking socket would then block the process until the next connection.
void acceptWithoutBlocking(NSMessagePort *port) {
  const int listener = [port _listener];
  fcntl(listener, F_SETFL, fcntl(listener, F_GETFL) | O_NONBLOCK);
}

/// Accepts connections that would be lost with the socket.
void acceptWaiting(NSMessagePort *port) {
  struct pollfd listener = {[port _listener], POLLIN, 0};
  while (poll(&listener, 1, 0) == 1 && (listener.revents & POLLIN) != 0) {
    void *const descriptor = reinterpret_cast<void *>(static_cast<intptr_t>([port _listener]));
    [static_cast<id<RunLoopEvents>>(port) receivedEvent:nullptr
                                                   type:ET_RPORT
                                                  extra:descriptor
                                                forMode:NSDefaultRunLoopMode];
  }
}

bool repairSocket(RegisteredName &registered) {
  if (hasSocket(registered)) return true;
  const std::string &path = registered.files.socket;
  acceptWaiting(registered.port);
  if (!platform::bindAgain([registered.port _listener], path)) return false;
  registered.socket = platform::identityOf(path);
  return true;
}

State repairName(const RegisteredName &registered) {
  if (platform::holdsOwnName(registered.files)) return State::Intact;
  NSDistributedLock *const lock = [NSMessagePortNameServer _fileLock];
  if (lock == nil) return State::Lost;
  NSString *const path = [NSMessagePortNameServer _pathForName:registered.name];
  State state = State::Taken;
  if (![NSMessagePortNameServer _livePort:path]) {
    state = platform::writeName(registered.files) ? State::Intact : State::Lost;
  }
  [lock unlock];
  return state;
}

State repair(RegisteredName &registered) {
  const platform::TemporaryFolder folder = platform::temporaryFolder();
  if (!folder.problem.empty() || folder.path != temporaryFolderOf(registered.files) ||
      !platform::makePortFolders(folder.path)) {
    return State::Lost;
  }
  @try {
    return repairSocket(registered) ? repairName(registered) : State::Lost;
  } @catch (NSException *exception) {
    // The lock for names was removed while it was held.
    return State::Lost;
  }
}

/// Logs each change once.
void logState(RegisteredName &registered) {
  const bool wasRepaired = registered.wasLost && registered.state == State::Intact;
  if (registered.state == registered.loggedState && !wasRepaired) return;
  registered.loggedState = registered.state;
  registered.wasLost = false;
  switch (registered.state) {
    case State::Intact:
      NSLog(@"The name \"%@\" was lost and is registered again", registered.name);
      return;
    case State::Taken:
      NSLog(@"The name \"%@\" was lost and is another program's now", registered.name);
      return;
    case State::Lost: {
      const std::string problem = platform::temporaryFolder().problem;
      NSLog(@"The name \"%@\" is lost and cannot be registered again now%s%s", registered.name,
            problem.empty() ? "" : ": ", problem.c_str());
      return;
    }
  }
}

/// The last two are AppKit's, by value, because its constants would make every program load it.
NSArray *modes() {
  return @[
    NSDefaultRunLoopMode, NSConnectionReplyMode, @"NSModalPanelRunLoopMode",
    @"NSEventTrackingRunLoopMode"
  ];
}

}  // namespace

struct RegisteredNamesState {
  std::vector<RegisteredName> names;
  std::unique_ptr<platform::FileWatch> watch;
  NSTimeInterval retrySeconds = 0;
};

@interface RegisteredNames () <RunLoopEvents>
@end

@implementation RegisteredNames

+ (RegisteredNames *)sharedNames {
  static RegisteredNames *const shared = [[RegisteredNames alloc] init];
  return shared;
}

- (id)init {
  if ((self = [super init])) _state = new RegisteredNamesState;
  return self;
}

- (void)dealloc {
  delete _state;
  [super dealloc];
}

- (void)addName:(NSString *)name ofPort:(NSPort *)port {
  [self removeName:name ofPort:nil];
  NSMessagePort *const listening = static_cast<NSMessagePort *>(port);
  acceptWithoutBlocking(listening);
  const platform::PortFiles files = {
      [[NSMessagePortNameServer _pathForName:name] fileSystemRepresentation],
      reinterpret_cast<const char *>([listening _name])};
  _state->names.push_back({[name copy], listening, files, platform::identityOf(files.socket)});
  [self checkNames];
}

- (void)removeName:(NSString *)name ofPort:(NSPort *)port {
  for (auto registered = _state->names.begin(); registered != _state->names.end(); ++registered) {
    if (![registered->name isEqualToString:name]) continue;
    if (port != nil && port != registered->port) continue;
    [registered->name release];
    _state->names.erase(registered);
    // The others are not checked: at the end of the process their sockets may be removed already.
    if (_state->names.empty()) [self stopWatching];
    return;
  }
}

#pragma mark - Watching

- (void)stopWatching {
  if (_state->watch == nullptr) return;
  void *const descriptor =
      reinterpret_cast<void *>(static_cast<intptr_t>(_state->watch->descriptor()));
  for (NSString *mode in modes()) {
    [[NSRunLoop mainRunLoop] removeEvent:descriptor type:ET_RDESC forMode:mode all:YES];
  }
  _state->watch.reset();
}

/// Called before the files are checked, so that no removal in between is missed.
- (void)startWatching {
  if (_state->watch == nullptr) [self makeWatch];
  if (_state->watch == nullptr) return;
  platform::FileWatch &watch = *_state->watch;
  watch.clear();
  for (const RegisteredName &registered : _state->names) {
    for (const std::string &path : {registered.files.name, registered.files.socket}) {
      watch.add(path);
      watch.addFoldersAbove(path);
    }
  }
}

- (void)makeWatch {
  auto watch = std::make_unique<platform::FileWatch>();
  if (watch->descriptor() < 0) return;
  void *const descriptor = reinterpret_cast<void *>(static_cast<intptr_t>(watch->descriptor()));
  for (NSString *mode in modes()) {
    [[NSRunLoop mainRunLoop] addEvent:descriptor type:ET_RDESC watcher:self forMode:mode];
  }
  _state->watch = std::move(watch);
}

- (void)receivedEvent:(void *)data
                 type:(RunLoopEventType)type
                extra:(void *)extra
              forMode:(NSString *)mode {
  (void)data;
  (void)type;
  (void)extra;
  (void)mode;
  [self checkNames];
}

#pragma mark - Repair

- (void)checkNames {
  [NSObject cancelPreviousPerformRequestsWithTarget:self selector:_cmd object:nil];
  BOOL areWatched = NO;
  for (int i = 0; i < kTries && !areWatched; ++i) {
    if (_state->names.empty()) return [self stopWatching];
    [self startWatching];
    areWatched = ![self repairLostNames];
  }
  BOOL areIntact = YES;
  for (RegisteredName &registered : _state->names) {
    logState(registered);
    if (registered.state != State::Intact) areIntact = NO;
  }
  if (areWatched && areIntact) {
    _state->retrySeconds = 0;
  } else {
    [self retryLater];
  }
}

/// Answers whether there are new files, which are not watched yet.
- (BOOL)repairLostNames {
  BOOL hasChanged = NO;
  for (RegisteredName &registered : _state->names) {
    if (isIntact(registered)) continue;
    registered.wasLost = true;
    registered.state = repair(registered);
    if (registered.state == State::Intact) hasChanged = YES;
  }
  return hasChanged;
}

/// There is no notification for a folder that is created again, or for the exit of a process that
/// has taken a name.
- (void)retryLater {
  _state->retrySeconds = MIN(MAX(2 * _state->retrySeconds, kFirstRetrySeconds), kLastRetrySeconds);
  [self performSelector:@selector(checkNames)
             withObject:nil
             afterDelay:_state->retrySeconds
                inModes:modes()];
}

@end
