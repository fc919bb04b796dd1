#import "platform/gnustep/keyboard/MacKeys.h"

#import <AppKit/AppKit.h>

#include "platform/gnustep/keyboard/MacKeyCodes.h"
#import "platform/gnustep/runtime/MethodReplacement.h"

namespace {

constexpr int kXKeyPress = 2;
constexpr int kXKeyRelease = 3;

/// Whether the event being made is one of the window server's key events.
thread_local bool isServerKeyEvent = false;

class ServerKeyEventScope {
 public:
  explicit ServerKeyEventScope(bool isKey) : outer_(isServerKeyEvent) { isServerKeyEvent = isKey; }
  ~ServerKeyEventScope() { isServerKeyEvent = outer_; }
  ServerKeyEventScope(const ServerKeyEventScope &) = delete;
  ServerKeyEventScope &operator=(const ServerKeyEventScope &) = delete;

 private:
  bool outer_;
};

/// The window server's event, of which only the first member is of interest.
struct ServerEvent {
  int type;
};

constinit platform::ReplacedMethod<void(const ServerEvent *)> platformProcessEvent;

void processEvent(id self, SEL selector, const ServerEvent *event) {
  const ServerKeyEventScope scope(event->type == kXKeyPress || event->type == kXKeyRelease);
  platformProcessEvent(self, selector, event);
}

bool isControlCharacter(unichar character) {
  return character < 0x20 || character == NSDeleteCharacter;
}

/// The server makes control characters (or nothing) of letters and digits when Control is held. As
/// Command it must not: Command-M would come out as Return and Command-I as Tab.
NSString *charactersWithCommand(NSString *characters, NSString *unmodified) {
  if ([unmodified length] == 0 || isControlCharacter([unmodified characterAtIndex:0])) {
    return characters;
  }
  if ([characters length] > 0 && !isControlCharacter([characters characterAtIndex:0])) {
    return characters;
  }
  return unmodified;
}

constinit platform::ReplacedMethod<NSEvent *(NSEventType, NSPoint, NSUInteger, NSTimeInterval,
                                             NSInteger, NSGraphicsContext *, NSString *, NSString *,
                                             BOOL, unsigned short)>
    platformMakeKeyEvent;

NSEvent *makeKeyEvent(id self, SEL selector, NSEventType type, NSPoint location, NSUInteger flags,
                      NSTimeInterval time, NSInteger window, NSGraphicsContext *context,
                      NSString *characters, NSString *unmodified, BOOL isRepeat,
                      unsigned short code) {
  if (isServerKeyEvent) {
    code = macKeyCode(code);
    if ((flags & NSCommandKeyMask) != 0 && (flags & NSControlKeyMask) == 0) {
      characters = charactersWithCommand(characters, unmodified);
    }
  }
  return platformMakeKeyEvent(self, selector, type, location, flags, time, window, context,
                              characters, unmodified, isRepeat, code);
}

}  // namespace

/// Installs the replacements when the bundle of the window server has been loaded and before its
/// object is created, which caches the implementation.
@interface WindowServerBundle : NSObject
+ (void)bundleDidLoad:(NSNotification *)notification;
@end

@implementation WindowServerBundle

+ (void)bundleDidLoad:(NSNotification *)notification {
  (void)notification;
  const Class server = NSClassFromString(@"XGServer");
  if (server == Nil) return;
  [[NSNotificationCenter defaultCenter] removeObserver:self];
  if (![server instancesRespondToSelector:@selector(processEvent:)]) return;
  const SEL make = NSSelectorFromString(
      @"keyEventWithType:location:modifierFlags:timestamp:windowNumber:context:"
      @"characters:charactersIgnoringModifiers:isARepeat:keyCode:");
  platformMakeKeyEvent.install(object_getClass([NSEvent class]), make, makeKeyEvent);
  platformProcessEvent.install(server, @selector(processEvent:), processEvent);
}

@end

void registerModifierKeys(NSUserDefaults *defaults) {
  NSDictionary *const keys = @{
    @"GSFirstCommandKey" : @"Control_L",
    @"GSSecondCommandKey" : @"Control_R",
    @"GSFirstControlKey" : @"Super_L",
    @"GSSecondControlKey" : @"Super_R",
    @"GSFirstAlternateKey" : @"Alt_L",
    @"GSSecondAlternateKey" : @"Alt_R",
  };
  for (NSString *key in keys) {
    if ([defaults objectForKey:key] != nil) return;
  }
  [defaults registerDefaults:keys];
}

void installMacKeys() {
  static bool isInstalled = false;
  if (isInstalled) return;
  if (NSClassFromString(@"XGServer") != Nil) {
    [NSException raise:NSInternalInconsistencyException
                format:@"the window server is connected already"];
  }
  isInstalled = true;
  registerModifierKeys([NSUserDefaults standardUserDefaults]);
  [[NSNotificationCenter defaultCenter] addObserver:[WindowServerBundle class]
                                           selector:@selector(bundleDidLoad:)
                                               name:NSBundleDidLoadNotification
                                             object:nil];
}
