#import "platform/gnustep/windows/BackgroundApplication.h"

#import <AppKit/AppKitExceptions.h>
#import <GNUstepGUI/GSDisplayServer.h>
#include <malloc.h>

#include <string>

#import "platform/gnustep/desktop/FollowedLook.h"
#import "platform/gnustep/events/EventArrival.h"
#import "platform/gnustep/images/ImageTypes.h"
#import "platform/gnustep/inputmethods/Composition.h"
#import "platform/gnustep/inputmethods/CompositionEvents.h"
#import "platform/gnustep/keyboard/MacKeys.h"
#import "platform/gnustep/languages/NSUserDefaults+Languages.h"
#include "platform/gnustep/launch/LaunchConditions.h"
#import "platform/gnustep/menus/NSPopUpButton+OpenMenu.h"
#import "platform/gnustep/pasteboard/NSPasteboard+ServerConnection.h"
#import "platform/gnustep/screen/ScreenScaleDefaults.h"
#import "platform/gnustep/sheets/NSWindow+Sheet.h"
#import "platform/gnustep/sheets/SheetQueue.h"
#import "platform/gnustep/theme/QuietTheme.h"
#import "platform/gnustep/windows/KeyboardFocus.h"
#import "platform/gnustep/windows/NSWindow+Closing.h"
#import "platform/gnustep/windows/WindowList.h"

@interface NSApplication (PlatformPrivate)
- (void)_windowWillDealloc:(NSWindow *)window;
@end

@interface GSDisplayServer (PlatformPrivate)
- (void)mouseOptionsChanged:(NSNotification *)notification;
@end

namespace {

/// The platform vends every application under its name, and any process of the same user may send
/// it and its delegate any message, unless this default lists the permitted ones. The Mac vends
/// nothing. Info.plist may permit messages under the same key.
NSString *const kPermittedMessages = @"GSPermittedMessages";

/// Too short to be noticed.
constexpr NSTimeInterval kWakeAfterSeconds = 0.01;

/// Together some seconds: on a busy machine the server may take that long to start.
constexpr int kPasteboardAttempts = 50;
constexpr int kAttemptsInAConnection = 10;
constexpr NSTimeInterval kNextPasteboardAttemptSeconds = 0.1;

/// Until the requests that follow a launch are over.
constexpr NSTimeInterval kAtRestSeconds = 0.5;

/// Sets a flag while in scope, also when an exception leaves the scope.
class ScopedFlag {
 public:
  explicit ScopedFlag(BOOL &flag) : flag_(flag), former_(flag) { flag = YES; }
  ~ScopedFlag() { flag_ = former_; }
  ScopedFlag(const ScopedFlag &) = delete;
  ScopedFlag &operator=(const ScopedFlag &) = delete;

 private:
  BOOL &flag_;
  BOOL former_;
};

}  // namespace

@implementation BackgroundApplication

+ (BackgroundApplication *)sharedApplication {
  const std::string program = [[[NSProcessInfo processInfo] processName] UTF8String];
  if (NSApp == nil) platform::endUnlessLaunchable(program);
  id const permitted = [[[NSBundle mainBundle] infoDictionary] objectForKey:kPermittedMessages];
  // Before the platform first uses the defaults. The user's own settings override them.
  [[NSUserDefaults standardUserDefaults] registerDefaults:@{
    @"GSSuppressAppIcon" : @"YES",
    kPermittedMessages : permitted ?: [NSArray array]
  }];
  useOwnImageReadersOnly();
  installMacKeys();
  adoptScreenScale();
  adoptDesktopLook();
  installQuietTheme();
  // Not in the build where the platform does it itself.
  if ([NSUserDefaults respondsToSelector:@selector(adoptLanguagesOfUser)]) {
    [NSUserDefaults adoptLanguagesOfUser];
  }
  NSApplication *application = nil;
  @try {
    application = [super sharedApplication];
  } @catch (NSException *exception) {
    // It cannot be handled: without a display there is no application.
    if (![[exception name] isEqualToString:NSWindowServerCommunicationException]) @throw;
    platform::endLaunch(program, platform::LaunchFailure::NoPlaceToRun, platform::displayProblem());
  }
  platform::endWithDisplay(program);
  installComposition();
  installEventArrival();
  installKeyboardFocus();
  installWindowList();
  return static_cast<BackgroundApplication *>(application);
}

- (void)finishLaunching {
  [self readMouseOptions];
  _isLaunching = YES;
  [super finishLaunching];
  _isLaunching = NO;
  [self performSelector:@selector(startPasteboardServer) withObject:nil afterDelay:0];
  [self performSelector:@selector(followDesktop) withObject:nil afterDelay:0];
  [self performSelector:@selector(returnFreeMemory) withObject:nil afterDelay:kAtRestSeconds];
}

- (void)followDesktop {
  followDesktopLook(showCurrentLook);
}

/// What the launch has allocated and freed in between, a fifth of what it allocated. The allocator
/// returns by itself only what is free at the end of its memory.
- (void)returnFreeMemory {
  malloc_trim(0);
}

/// The platform reads these at the first click and registers with the server of distributed
/// notifications, which it may have to start. Mouse events that arrive meanwhile are queued before
/// that click: a control gets the press after the release and tracks the mouse for ever.
- (void)readMouseOptions {
  if ([GSCurrentServer() respondsToSelector:@selector(mouseOptionsChanged:)]) {
    [GSCurrentServer() mouseOptionsChanged:nil];
  }
}

/// On the Mac the pasteboard server is always running. Here it is started by the first use, which
/// blocks meanwhile, so it is started before the user needs it; nor is it waited for, because the
/// plug-in may be waiting for the application.
- (void)startPasteboardServer {
  if ([NSPasteboard startServer]) {
    [self connectToPasteboardServer];
  } else {
    [self connectToPasteboardServerSoon];
  }
}

- (void)connectToPasteboardServer {
  if ([NSPasteboard isConnectedToServer]) return;
  if ([NSPasteboard isServerRunning]) {
    if ([NSPasteboard connectToServer]) return;
    // It hangs, and each attempt blocks for seconds.
    _pasteboardAttempts += kAttemptsInAConnection;
  }
  if (++_pasteboardAttempts < kPasteboardAttempts) [self connectToPasteboardServerSoon];
}

- (void)connectToPasteboardServerSoon {
  [self performSelector:@selector(connectToPasteboardServer)
             withObject:nil
             afterDelay:kNextPasteboardAttemptSeconds];
}

- (void)activateIgnoringOtherApps:(BOOL)ignoringOtherApps {
  // The platform activates every application at launch, while the user may be typing elsewhere.
  if (!_isLaunching) [super activateIgnoringOtherApps:ignoringOtherApps];
}

- (void)hide:(id)sender {
  (void)sender;
  if (_app_is_hidden) return;
  NSNotificationCenter *const center = [NSNotificationCenter defaultCenter];
  [center postNotificationName:NSApplicationWillHideNotification object:self];
  // First, because it stores the key window.
  [self deactivate];
  for (NSWindow *window in [self windows]) {
    if (![window isVisible] || ![window canHide]) continue;
    // A window that is being closed is visible until its observers have been notified, and must not
    // be shown again with the others. Sheets are shown again by their queue.
    if (![window hasBeenClosed] && ![window isSheet]) [_hidden addObject:window];
    [window orderOut:self];
  }
  _app_is_hidden = YES;
  _unhide_on_activation = YES;
  [center postNotificationName:NSApplicationDidHideNotification object:self];
}

- (void)dealloc {
  [_sheetQueue release];
  [super dealloc];
}

#pragma mark - Sheets

- (SheetQueue *)sheetQueue {
  if (_sheetQueue == nil) _sheetQueue = [[SheetQueue alloc] init];
  return _sheetQueue;
}

- (void)beginSheet:(NSWindow *)sheet
    modalForWindow:(NSWindow *)window
     modalDelegate:(id)delegate
    didEndSelector:(SEL)selector
       contextInfo:(void *)contextInfo {
  [[self sheetQueue] beginSheet:sheet
                 modalForWindow:window
                  modalDelegate:delegate
                 didEndSelector:selector
                    contextInfo:contextInfo];
}

- (void)endSheet:(NSWindow *)sheet {
  [self endSheet:sheet returnCode:NSRunStoppedResponse];
}

- (void)endSheet:(NSWindow *)sheet returnCode:(NSInteger)code {
  [_sheetQueue endSheet:sheet returnCode:code];
}

- (void)sendEvent:(NSEvent *)event {
  const ScopedFlag sending(_isSendingEvent);
  if (_sheetQueue != nil) event = [_sheetQueue eventToDeliver:event];
  if (event == nil || deliverToOpenMenu(event) || handleComposition(event)) return;
  [super sendEvent:event];
}

- (BOOL)isSendingEvent {
  return _isSendingEvent;
}

/// Called by the platform from a window's dealloc, so nothing here may retain it.
- (void)_windowWillDealloc:(NSWindow *)window {
  [super _windowWillDealloc:window];
  [_sheetQueue windowWillDealloc:window];
}

#pragma mark - Modal sessions

/// The platform's modal loop checks its state only after an event, and reads events only after an
/// input of the run loop. A session that is stopped by a timer would go on until the user moves the
/// mouse, so this posts an event and schedules an input.
- (void)stopModalWithCode:(NSInteger)code {
  NSWindow *const window = [self modalWindow];
  [super stopModalWithCode:code];
  if (window == nil) return;
  [self postEvent:[NSEvent otherEventWithType:NSApplicationDefined
                                     location:NSZeroPoint
                                modifierFlags:0
                                    timestamp:0
                                 windowNumber:[window windowNumber]
                                      context:[window graphicsContext]
                                      subtype:0
                                        data1:0
                                        data2:0]
          atStart:NO];
  // Also in the default mode, so that none is left when the session has ended without it.
  [self performSelector:@selector(wake)
             withObject:nil
             afterDelay:kWakeAfterSeconds
                inModes:[NSArray
                            arrayWithObjects:NSModalPanelRunLoopMode, NSDefaultRunLoopMode, nil]];
}

- (void)wake {
}

@end
