#import "tests/platform/tokenfield/TokenFieldFixture.h"

#import "platform/gnustep/tokenfield/CompletionListView.h"
#import "platform/gnustep/tokenfield/FieldToken.h"
#import "platform/gnustep/tokenfield/TokenLayout.h"
#import "platform/gnustep/tokenfield/TokenPill.h"

void TokenField::SetUp() {
  pool_ = [[NSAutoreleasePool alloc] init];
  window = [[NSWindow alloc] initWithContentRect:NSMakeRect(300, 300, 480, 200)
                                       styleMask:NSTitledWindowMask
                                         backing:NSBackingStoreBuffered
                                           defer:NO];
  [window setReleasedWhenClosed:NO];
  field = [[RecipientField alloc] initWithFrame:NSMakeRect(20, 120, 440, 24)];
  [field setFont:[NSFont systemFontOfSize:13]];
  [field setTokenizingCharacterSet:[NSCharacterSet characterSetWithCharactersInString:@",;"]];
  next = [[NSTextField alloc] initWithFrame:NSMakeRect(20, 80, 440, 24)];
  button = [[NSButton alloc] initWithFrame:NSMakeRect(360, 20, 100, 24)];
  counter = [[ClickCounter alloc] init];
  [button setTarget:counter];
  [button setAction:@selector(clicked:)];
  [button setKeyEquivalent:@"\r"];
  for (NSView *view in [NSArray arrayWithObjects:field, next, button, nil]) {
    [[window contentView] addSubview:view];
  }
  [window setAutorecalculatesKeyViewLoop:NO];
  [window setInitialFirstResponder:next];
  [field setNextKeyView:next];
  [next setNextKeyView:field];
  [window setDefaultButtonCell:[button cell]];
  delegate = [[RecipientDelegate alloc] init];
  delegate->book =
      [[NSArray alloc] initWithObjects:@"Anna<anna@example.org>", @"ANDY<andy@example.org>",
                                       @"Brian<brian@x.org>", nil];
  [field setDelegate:delegate];
  [window makeKeyAndOrderFront:nil];
  ASSERT_TRUE(eventually([this] { return [window isKeyWindow] != NO; }));
}

void TokenField::TearDown() {
  [field setDelegate:nil];
  [window close];
  settle();
  [field release];
  [next release];
  [button release];
  [window release];
  [delegate release];
  [counter release];
  [pool_ drain];
}

void TokenField::queueKey(unichar key, NSUInteger modifiers) {
  NSString *const characters = [NSString stringWithCharacters:&key length:1];
  for (const NSEventType kind : {NSKeyDown, NSKeyUp}) {
    [NSApp postEvent:[NSEvent keyEventWithType:kind
                                            location:NSZeroPoint
                                       modifierFlags:modifiers
                                           timestamp:0
                                        windowNumber:[window windowNumber]
                                             context:nil
                                          characters:characters
                         charactersIgnoringModifiers:characters
                                           isARepeat:NO
                                             keyCode:0]
             atStart:NO];
  }
}

void TokenField::press(unichar key, NSUInteger modifiers) {
  queueKey(key, modifiers);
  settle();
  // Each key is an event of its own, which ends the undo group.
  [[NSRunLoop currentRunLoop] runMode:NSDefaultRunLoopMode beforeDate:[NSDate date]];
}

void TokenField::type(NSString *characters) {
  for (NSUInteger i = 0; i < [characters length]; ++i) {
    const unichar character = [characters characterAtIndex:i];
    press(character == '\n' ? NSCarriageReturnCharacter : character);
  }
}

void TokenField::settle() {
  static NSInteger last = 0;
  const NSInteger number = ++last;
  [NSApp postEvent:[NSEvent otherEventWithType:NSApplicationDefined
                                      location:NSZeroPoint
                                 modifierFlags:0
                                     timestamp:0
                                  windowNumber:0
                                       context:nil
                                       subtype:0
                                         data1:number
                                         data2:0]
           atStart:NO];
  for (bool isDone = false; !isDone;) {
    @autoreleasepool {
      NSEvent *const event = [NSApp nextEventMatchingMask:NSAnyEventMask
                                                untilDate:[NSDate distantFuture]
                                                   inMode:NSDefaultRunLoopMode
                                                  dequeue:YES];
      isDone = [event type] == NSApplicationDefined && [event data1] == number;
      if (!isDone) [NSApp sendEvent:event];
    }
  }
}

bool TokenField::eventually(const std::function<bool()> &condition) {
  return waitFor([&] {
    settle();
    if (condition()) return true;
    @autoreleasepool {
      NSDate *const soon = [NSDate dateWithTimeIntervalSinceNow:0.01];
      [[NSRunLoop currentRunLoop] runMode:NSDefaultRunLoopMode beforeDate:soon];
    }
    return condition();
  });
}

namespace {

void postMouse(NSEventType kind, NSWindow *window, NSPoint place, int count, NSUInteger modifiers) {
  [NSApp postEvent:[NSEvent mouseEventWithType:kind
                                      location:place
                                 modifierFlags:modifiers
                                     timestamp:0
                                  windowNumber:[window windowNumber]
                                       context:nil
                                   eventNumber:0
                                    clickCount:count
                                      pressure:1]
           atStart:NO];
}

}  // namespace

void TokenField::clickInWindow(NSWindow *target, NSPoint inWindow) {
  postMouse(NSLeftMouseDown, target, inWindow, 1, 0);
  postMouse(NSLeftMouseUp, target, inWindow, 1, 0);
  settle();
}

void TokenField::click(NSPoint inField, int count, NSUInteger modifiers) {
  const NSPoint place = [field convertPoint:inField toView:nil];
  for (int i = 1; i <= count; ++i) {
    postMouse(NSLeftMouseDown, window, place, i, modifiers);
    postMouse(NSLeftMouseUp, window, place, i, modifiers);
  }
  settle();
}

void TokenField::drag(NSPoint from, NSPoint to) {
  postMouse(NSLeftMouseDown, window, [field convertPoint:from toView:nil], 1, 0);
  postMouse(NSLeftMouseDragged, window, [field convertPoint:to toView:nil], 1, 0);
  postMouse(NSLeftMouseUp, window, [field convertPoint:to toView:nil], 1, 0);
  settle();
}

namespace {

NSUInteger characterOfToken(NSAttributedString *text, NSUInteger index) {
  for (NSUInteger i = 0; i < [text length]; ++i) {
    if (tokenAt(text, i) != nil && index-- == 0) return i;
  }
  return NSNotFound;
}

}  // namespace

NSPoint TokenField::middleOfToken(NSUInteger index) {
  NSTextView *const view = editor();
  const NSUInteger character = characterOfToken([view textStorage], index);
  const NSRect place = tokenRect([view layoutManager], character);
  return [field convertPoint:NSMakePoint(NSMidX(place), NSMidY(place)) fromView:view];
}

void TokenField::focus() {
  [window makeFirstResponder:field];
  settle();
}

void TokenField::leave() {
  [window makeFirstResponder:next];
  settle();
}

std::string TokenField::typed() {
  const unichar mark = NSAttachmentCharacter;
  return text([[editor() string]
      stringByReplacingOccurrencesOfString:[NSString stringWithCharacters:&mark length:1]
                                withString:@"*"]);
}

NSUInteger TokenField::tokenCount() {
  NSTextStorage *const storage = [editor() textStorage];
  NSUInteger count = 0;
  for (NSUInteger i = 0; i < [storage length]; ++i) {
    if (tokenAt(storage, i) != nil) ++count;
  }
  return count;
}

std::string TokenField::shownText(NSUInteger tokenIndex) {
  NSTextStorage *const storage = [editor() textStorage];
  return text([[tokenAt(storage, characterOfToken(storage, tokenIndex)) pill] shownText]);
}

std::string TokenField::selection() {
  const NSRange range = [editor() selectedRange];
  return std::to_string(range.location) + "+" + std::to_string(range.length);
}

namespace {

CompletionListView *rowsIn(NSWindow *window) {
  NSView *const content = [window contentView];
  if (![content isKindOfClass:[NSScrollView class]]) return nil;
  NSView *const document = [static_cast<NSScrollView *>(content) documentView];
  return [document isKindOfClass:[CompletionListView class]]
             ? static_cast<CompletionListView *>(document)
             : nil;
}

}  // namespace

NSWindow *TokenField::list() {
  for (NSWindow *each in [NSApp windows]) {
    if ([each isVisible] && rowsIn(each) != nil) return each;
  }
  return nil;
}

NSView *TokenField::listRows() {
  return rowsIn(list());
}

std::string TokenField::highlighted() {
  CompletionListView *const rows = rowsIn(list());
  const NSInteger row = [rows selectedRow];
  return row < 0 ? "(none)" : text([[rows items] objectAtIndex:static_cast<NSUInteger>(row)]);
}

NSString *TokenField::clipboard() {
  return [[NSPasteboard generalPasteboard] stringForType:NSStringPboardType];
}

void TokenField::setClipboard(NSString *contents) {
  NSPasteboard *const pasteboard = [NSPasteboard generalPasteboard];
  [pasteboard clearContents];
  [pasteboard writeObjects:[NSArray arrayWithObject:contents]];
}

void TokenField::resizeField(NSRect frame) {
  [field setFrame:frame];
  [window display];
}
