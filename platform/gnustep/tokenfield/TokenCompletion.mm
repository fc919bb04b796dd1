#import "platform/gnustep/tokenfield/TokenCompletion.h"

#import "platform/gnustep/tokenfield/TokenEditor.h"
#import "platform/gnustep/tokenfield/TokenFieldCell.h"

namespace {

/// The interval at which to check whether the queued keys have been handled.
constexpr NSTimeInterval kKeysWaitingSeconds = 0.01;

struct ListKey {
  SEL command;
  NSInteger rows;
};

/// Only the mode that is running: the platform would retain the timers in another one until that
/// runs.
NSString *runningMode() {
  return [NSApp modalWindow] == nil ? NSDefaultRunLoopMode : NSModalPanelRunLoopMode;
}

BOOL keysAreWaiting() {
  return [NSApp nextEventMatchingMask:NSKeyDownMask
                            untilDate:[NSDate distantPast]
                               inMode:runningMode()
                              dequeue:NO] != nil;
}

}  // namespace

@implementation TokenCompletion

- (id)initWithEditor:(TokenEditor *)editor {
  self = [super init];
  if (self == nil) return nil;
  _editor = editor;
  return self;
}

- (void)dealloc {
  [_list release];
  [super dealloc];
}

- (void)invalidate {
  [self close];
  _editor = nil;
}

#pragma mark - Asking

- (void)askAfter:(NSTimeInterval)delay {
  [self cancelAsking];
  _isAboutToAsk = YES;
  [self performSelector:@selector(askUnlessKeysWait)
             withObject:nil
             afterDelay:delay
                inModes:[NSArray arrayWithObject:runningMode()]];
}

- (void)cancelAsking {
  _isAboutToAsk = NO;
  [NSObject cancelPreviousPerformRequestsWithTarget:self
                                           selector:@selector(askUnlessKeysWait)
                                             object:nil];
}

- (void)textChanged {
  if ([_editor fragmentRange].length == 0) {
    [self close];
  } else {
    [self askAfter:MAX(0, [[_editor cell] completionDelay])];
  }
}

- (void)askUnlessKeysWait {
  if (keysAreWaiting()) {
    [self askAfter:kKeysWaitingSeconds];
  } else {
    [self askNow];
  }
}

- (void)askNow {
  [self cancelAsking];
  const NSRange fragment = [_editor fragmentRange];
  NSWindow *const window = [_editor window];
  // The window may have been closed, and its delegate deallocated, since the text changed.
  if (fragment.length == 0 || [window firstResponder] != _editor || ![window isVisible]) {
    [self close];
    return;
  }
  NSInteger selected = -1;
  NSArray *const items =
      [[_editor cell] completionsForSubstring:[[_editor string] substringWithRange:fragment]
                                 indexOfToken:[_editor fragmentTokenIndex]
                                     selected:&selected];
  if ([items count] == 0) {
    [self close];
    return;
  }
  if (_list == nil) _list = [[CompletionList alloc] initWithUser:self];
  [_list showItems:items
          selected:selected
              font:[[_editor cell] font]
             below:[[_editor cell] controlView]];
}

#pragma mark - The list

- (void)close {
  [self cancelAsking];
  [_list close];
}

- (BOOL)isListOpen {
  return [_list isOpen];
}

- (void)completionList:(CompletionList *)list choseItem:(NSString *)item {
  (void)list;
  NSString *const chosen = [[item retain] autorelease];
  const NSRange fragment = [_editor fragmentRange];
  [self close];
  if (fragment.length > 0) {
    [_editor replaceRange:fragment withTokensForStrings:[NSArray arrayWithObject:chosen]];
  }
}

/// Answers whether there was one.
- (BOOL)chooseSelectedItem {
  NSString *const item = [_list selectedItem];
  if (item == nil) return NO;
  [self completionList:_list choseItem:item];
  return YES;
}

- (BOOL)moveSelectionBy:(SEL)command {
  const NSInteger page = static_cast<NSInteger>([CompletionList visibleRows]) - 1;
  const ListKey keys[] = {
      {@selector(moveUp:), -1},     {@selector(moveDown:), 1},
      {@selector(pageUp:), -page},  {@selector(scrollPageUp:), -page},
      {@selector(pageDown:), page}, {@selector(scrollPageDown:), page},
  };
  for (const ListKey &key : keys) {
    if (!sel_isEqual(command, key.command)) continue;
    [_list moveSelectionBy:key.rows];
    return YES;
  }
  return [self moveSelectionToEndBy:command];
}

/// Home and End, which move the caret as long as no item is selected.
- (BOOL)moveSelectionToEndBy:(SEL)command {
  if ([_list selectedItem] == nil) return NO;
  constexpr NSInteger kAll = INT_MAX;
  const ListKey keys[] = {{@selector(moveToBeginningOfParagraph:), -kAll},
                          {@selector(moveToEndOfParagraph:), kAll}};
  for (const ListKey &key : keys) {
    if (!sel_isEqual(command, key.command)) continue;
    [_list moveSelectionBy:key.rows];
    return YES;
  }
  return NO;
}

- (BOOL)handleCommand:(SEL)command {
  if (![self isListOpen]) return NO;
  if (_isAboutToAsk) [self askNow];
  if (![self isListOpen]) return NO;
  if (sel_isEqual(command, @selector(insertNewline:))) return [self chooseSelectedItem];
  if (sel_isEqual(command, @selector(insertTab:))) {
    [self chooseSelectedItem];
    return NO;
  }
  if (sel_isEqual(command, @selector(cancelOperation:)) ||
      sel_isEqual(command, @selector(complete:))) {
    [self close];
    return YES;
  }
  return [self moveSelectionBy:command];
}

@end
