#import "tests/platform/sheets/SheetTest.h"

namespace {

constexpr NSInteger kButtonTag = 1;
constexpr NSInteger kFieldTag = 2;

int livingWindows = 0;

}  // namespace

@implementation CountedWindow

+ (int)liveCount {
  return livingWindows;
}

- (id)initWithContentRect:(NSRect)content
                styleMask:(NSUInteger)mask
                  backing:(NSBackingStoreType)backing
                    defer:(BOOL)defer {
  self = [super initWithContentRect:content styleMask:mask backing:backing defer:defer];
  if (self) ++livingWindows;
  return self;
}

- (NSRect)constrainFrameRect:(NSRect)frame toScreen:(NSScreen *)screen {
  (void)screen;
  return frame;
}

- (void)dealloc {
  --livingWindows;
  [super dealloc];
}

@end

@implementation SheetDelegate

- (void)dealloc {
  if (isFreed != nullptr) *isFreed = true;
  [super dealloc];
}

- (void)sheetDidEnd:(NSWindow *)sheet returnCode:(NSInteger)code contextInfo:(void *)context {
  ends.push_back({sheet, code, context, [sheet isVisible] != NO});
  if (ordersOut) [sheet orderOut:nil];
  [closes close];
  NSWindow *const next = beginsNext;
  beginsNext = nil;
  if (next == nil) return;
  [NSApp beginSheet:next
      modalForWindow:nextParent
       modalDelegate:self
      didEndSelector:_cmd
         contextInfo:nullptr];
}

- (void)alertDidEnd:(NSAlert *)alert returnCode:(NSInteger)code contextInfo:(void *)context {
  ends.push_back({alert, code, context, [[alert window] isVisible] != NO});
}

- (void)clicked:(id)sender {
  (void)sender;
  ++clicks;
}

- (void)ticked:(NSTimer *)timer {
  (void)timer;
  ++ticks;
}

- (void)endSheetOfTimer:(NSTimer *)timer {
  ++ticks;
  [NSApp endSheet:[timer userInfo]];
}

@end

SheetTest::SheetTest() {
  [NSApp activateIgnoringOtherApps:YES];
  [parent makeKeyAndOrderFront:nil];
  handlePostedEvents();
}

SheetTest::~SheetTest() {
  [parent close];
  for (NSWindow *window in @[ sheet, second ]) [window close];
  for (NSWindow *window : {parent, sheet, second}) [window release];
  [delegate release];
  handlePostedEvents();
  [pool drain];
}

NSWindow *SheetTest::newWindow(NSRect content) {
  NSWindow *const window =
      [[CountedWindow alloc] initWithContentRect:content
                                       styleMask:NSTitledWindowMask | NSClosableWindowMask
                                         backing:NSBackingStoreBuffered
                                           defer:YES];
  [window setReleasedWhenClosed:NO];
  NSButton *const button =
      [[[NSButton alloc] initWithFrame:NSMakeRect(20, 20, 100, 28)] autorelease];
  [button setTag:kButtonTag];
  [button setTarget:delegate];
  [button setAction:@selector(clicked:)];
  [[window contentView] addSubview:button];
  NSTextField *const field =
      [[[NSTextField alloc] initWithFrame:NSMakeRect(20, 60, 200, 24)] autorelease];
  [field setTag:kFieldTag];
  [[window contentView] addSubview:field];
  [window setInitialFirstResponder:field];
  return window;
}

NSButton *SheetTest::button(NSWindow *window) {
  return [[window contentView] viewWithTag:kButtonTag];
}

NSTextField *SheetTest::field(NSWindow *window) {
  return [[window contentView] viewWithTag:kFieldTag];
}

NSString *SheetTest::typed(NSWindow *window) {
  return [[field(window) currentEditor] string];
}

void SheetTest::begin(NSWindow *window, NSWindow *on) {
  [NSApp beginSheet:window
      modalForWindow:on
       modalDelegate:delegate
      didEndSelector:@selector(sheetDidEnd:returnCode:contextInfo:)
         contextInfo:this];
}

void SheetTest::freeParent() {
  // Objects that the platform has autoreleased may retain it.
  @autoreleasepool {
    [parent release];
    parent = nil;
  }
}
