#include "tests/ui/EditingFields.h"

#import <objc/runtime.h>

#include "tests/support/Events.h"

namespace {

NSTimeInterval defaultCompletionDelay(id, SEL) {
  return [NSTokenFieldCell defaultCompletionDelay];
}

id defaultTokenizingCharacterSet(id, SEL) {
  return [NSTokenFieldCell defaultTokenizingCharacterSet];
}

/// The platform's token fields, when they are not made from an interface file, ask their cell for
/// what only the cell's class knows. Adds nothing where the cell knows it.
void letTokenFieldsBeMade() {
  const Class cell = [NSTokenFieldCell class];
  class_addMethod(cell, @selector(defaultCompletionDelay),
                  reinterpret_cast<IMP>(defaultCompletionDelay), "d@:");
  class_addMethod(cell, @selector(defaultTokenizingCharacterSet),
                  reinterpret_cast<IMP>(defaultTokenizingCharacterSet), "@@:");
}

}  // namespace

NSEvent *keyEvent(NSEventType type, unsigned short keyCode, NSUInteger modifiers,
                  NSString *characters) {
  return [NSEvent keyEventWithType:type
                          location:NSZeroPoint
                     modifierFlags:modifiers
                         timestamp:0
                      windowNumber:[[NSApp keyWindow] windowNumber]
                           context:nil
                        characters:characters
       charactersIgnoringModifiers:characters
                         isARepeat:NO
                           keyCode:keyCode];
}

EditingFields::EditingFields(Class fieldClass) {
  letTokenFieldsBeMade();
  window = [[NSWindow alloc] initWithContentRect:NSMakeRect(100, 100, 400, 200)
                                       styleMask:NSTitledWindowMask
                                         backing:NSBackingStoreBuffered
                                           defer:NO];
  [window setReleasedWhenClosed:NO];
  field = [[[fieldClass alloc] initWithFrame:NSMakeRect(20, 150, 360, 24)] autorelease];
  other = [[[fieldClass alloc] initWithFrame:NSMakeRect(20, 100, 360, 24)] autorelease];
  button = [[[NSButton alloc] initWithFrame:NSMakeRect(20, 20, 100, 30)] autorelease];
  for (NSView *view in @[ field, other, button ]) [[window contentView] addSubview:view];
  [window makeKeyAndOrderFront:nil];
  handleEventsUntil([&] { return [window isKeyWindow]; });
}

EditingFields::~EditingFields() {
  [window close];
  // Mirrors alloc: the window outlives its closing.
  [window release];
}

NSTextView *EditingFields::editor() const {
  NSResponder *const responder = [window firstResponder];
  const bool isEditor = [responder isKindOfClass:[NSTextView class]];
  return isEditor ? static_cast<NSTextView *>(responder) : nil;
}

NSTextView *EditingFields::edit(NSTextField *edited, NSString *text, bool isSelected) {
  [window makeFirstResponder:edited];
  if ([text length] > 0) [editor() insertText:text];
  const NSUInteger length = [[editor() string] length];
  [editor() setSelectedRange:isSelected ? NSMakeRange(0, length) : NSMakeRange(length, 0)];
  handlePostedEvents();
  return editor();
}

void EditingFields::press(unsigned short keyCode, NSUInteger modifiers, NSString *characters) {
  for (const NSEventType type : {NSKeyDown, NSKeyUp}) {
    [NSApp postEvent:keyEvent(type, keyCode, modifiers, characters) atStart:NO];
  }
  handlePostedEvents();
}
