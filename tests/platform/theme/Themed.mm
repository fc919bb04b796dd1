#include "tests/platform/theme/Themed.h"

namespace {

const NSRect kWindowFrame = {{100, 100}, {500, 400}};

NSEvent *mouseEvent(NSEventType type, NSView *view, NSPoint point) {
  return [NSEvent mouseEventWithType:type
                            location:[view convertPoint:point toView:nil]
                       modifierFlags:0
                           timestamp:0
                        windowNumber:[[view window] windowNumber]
                             context:nil
                         eventNumber:0
                          clickCount:1
                            pressure:1];
}

}  // namespace

Themed::Themed()
    : window([[NSWindow alloc] initWithContentRect:kWindowFrame
                                         styleMask:NSTitledWindowMask
                                           backing:NSBackingStoreBuffered
                                             defer:NO]) {
  [window setReleasedWhenClosed:NO];
  [window makeKeyAndOrderFront:nil];
}

Themed::~Themed() {
  [window close];
  [window release];
}

NSButton *Themed::pushButton(NSString *title) {
  NSButton *const button = [[NSButton alloc] initWithFrame:NSMakeRect(20, 20, 96, 32)];
  [button setTitle:title];
  [button setBezelStyle:NSRoundedBezelStyle];
  [button setButtonType:NSMomentaryPushInButton];
  return show(button);
}

NSButton *Themed::defaultButton(NSString *title) {
  NSButton *const button = pushButton(title);
  [button setKeyEquivalent:@"\r"];
  return button;
}

NSButton *Themed::markable(NSButtonType type, NSInteger state) {
  NSButton *const button = [[NSButton alloc] initWithFrame:NSMakeRect(20, 20, 120, 18)];
  [button setButtonType:type];
  [button setTitle:@"Mark"];
  [button setAllowsMixedState:state == NSMixedState];
  [button setState:state];
  return show(button);
}

NSTextField *Themed::field(NSString *text) {
  NSTextField *const field = [[NSTextField alloc] initWithFrame:NSMakeRect(20, 20, 160, 22)];
  [field setStringValue:text];
  return show(field);
}

NSTextField *Themed::label(NSString *text) {
  NSTextField *const label = field(text);
  [label setBezeled:NO];
  [label setEditable:NO];
  [label setDrawsBackground:NO];
  return label;
}

NSPopUpButton *Themed::popUp(NSArray *titles) {
  const NSRect frame = NSMakeRect(150, 200, 140, 26);
  NSPopUpButton *const button = [[NSPopUpButton alloc] initWithFrame:frame pullsDown:NO];
  [button addItemsWithTitles:titles];
  [button selectItemAtIndex:0];
  return show(button);
}

NSTabView *Themed::tabs(NSArray *labels) {
  NSTabView *const view = [[NSTabView alloc] initWithFrame:NSMakeRect(20, 20, 400, 300)];
  for (NSString *label in labels) {
    NSTabViewItem *const item = [[[NSTabViewItem alloc] initWithIdentifier:label] autorelease];
    [item setLabel:label];
    [item setView:[[[NSView alloc] initWithFrame:NSMakeRect(0, 0, 10, 10)] autorelease]];
    [view addTabViewItem:item];
  }
  return show(view);
}

NSTextView *Themed::textView() {
  NSScrollView *const scroll = [[NSScrollView alloc] initWithFrame:NSMakeRect(20, 20, 200, 100)];
  [scroll setBorderType:NSBezelBorder];
  [scroll setHasVerticalScroller:YES];
  NSTextView *const text =
      [[[NSTextView alloc] initWithFrame:NSMakeRect(0, 0, 180, 90)] autorelease];
  [scroll setDocumentView:text];
  show(scroll);
  return text;
}

void handleEvents() {
  for (;;) {
    @autoreleasepool {
      NSEvent *const event = [NSApp nextEventMatchingMask:NSAnyEventMask
                                                untilDate:[NSDate distantPast]
                                                   inMode:NSDefaultRunLoopMode
                                                  dequeue:YES];
      if (event == nil) return;
      [NSApp sendEvent:event];
    }
  }
}

void clickIn(NSView *view, NSPoint point) {
  [NSApp postEvent:mouseEvent(NSLeftMouseDown, view, point) atStart:NO];
  [NSApp postEvent:mouseEvent(NSLeftMouseUp, view, point) atStart:NO];
  handleEvents();
}

void typeKey(NSWindow *window, unichar key, NSUInteger modifiers) {
  NSString *const characters = [NSString stringWithCharacters:&key length:1];
  NSEvent *const event = [NSEvent keyEventWithType:NSKeyDown
                                          location:NSZeroPoint
                                     modifierFlags:modifiers
                                         timestamp:0
                                      windowNumber:[window windowNumber]
                                           context:nil
                                        characters:characters
                       charactersIgnoringModifiers:characters
                                         isARepeat:NO
                                           keyCode:0];
  [NSApp postEvent:event atStart:NO];
  handleEvents();
}
