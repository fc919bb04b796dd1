#import "windows/MessageKeys.h"

MessageKey messageKey(SEL command, BOOL isComposing) {
  if (sel_isEqual(command, @selector(insertTab:))) return MessageKey::Next;
  if (sel_isEqual(command, @selector(insertBacktab:))) return MessageKey::Previous;
  if (sel_isEqual(command, @selector(cancelOperation:)) && !isComposing) return MessageKey::Cancel;
  return MessageKey::Text;
}

BOOL doCommandInMessage(NSTextView *message, SEL command, id target, SEL cancel) {
  switch (messageKey(command, [message hasMarkedText])) {
    case MessageKey::Text:
      return NO;
    case MessageKey::Next:
      [[message window] selectKeyViewFollowingView:message];
      return YES;
    case MessageKey::Previous:
      [[message window] selectKeyViewPrecedingView:message];
      return YES;
    case MessageKey::Cancel:
      // The window that closes is in the middle of this key.
      [[message retain] autorelease];
      [NSApp sendAction:cancel to:target from:message];
      return YES;
  }
}
