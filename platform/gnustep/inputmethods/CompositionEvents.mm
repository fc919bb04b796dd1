#import "platform/gnustep/inputmethods/CompositionEvents.h"

#import <GNUstepGUI/GSDisplayServer.h>

#import "platform/gnustep/inputmethods/Composition.h"
#include "platform/gnustep/inputmethods/InputContexts.h"
#import "platform/gnustep/inputmethods/NSTextView+MarkedText.h"

/// Tells input methods where the caret is.
@interface SpotTeller : NSObject
/// When nothing comes from them any more.
+ (void)tellSoon:(Window)window;
@end

@implementation SpotTeller

+ (void)tellSoon:(Window)window {
  constexpr NSTimeInterval kPauseSeconds = 0.1;
  [NSObject cancelPreviousPerformRequestsWithTarget:self];
  [self performSelector:@selector(tell:)
             withObject:[NSNumber numberWithUnsignedLong:window]
             afterDelay:kPauseSeconds
                inModes:@[ NSDefaultRunLoopMode, NSModalPanelRunLoopMode ]];
}

+ (void)tell:(NSNumber *)window {
  const bool isDone = input_contexts::tellSpot([window unsignedLongValue]);
  handleInputAnswers();
  if (!isDone) [self tellSoon:[window unsignedLongValue]];
}

@end

namespace {

/// No key has these characters, of the range for private use; the step is the second one.
constexpr unichar kMarker = 0xE0F0;

NSString *markerOf(CompositionStep step) {
  const unichar characters[] = {kMarker, static_cast<unichar>(kMarker + static_cast<int>(step))};
  return [NSString stringWithCharacters:characters length:2];
}

BOOL isComposition(NSEvent *event) {
  if ([event type] != NSKeyDown) return NO;
  NSString *const unmodified = [event charactersIgnoringModifiers];
  return [unmodified length] == 2 && [unmodified characterAtIndex:0] == kMarker;
}

BOOL isHandledBefore(NSEvent *event) {
  return [event type] == NSKeyDown &&
         [[event charactersIgnoringModifiers] isEqualToString:charactersOfHandledKey()];
}

CompositionStep stepOf(NSEvent *event) {
  return static_cast<CompositionStep>([[event charactersIgnoringModifiers] characterAtIndex:1] -
                                      kMarker);
}

void mark(NSTextView *view, NSString *text, NSUInteger caret) {
  [view setMarkedText:text selectedRange:NSMakeRange(caret, 0)];
  if ([view hasMarkedText]) [SpotTeller tellSoon:serverWindow([view window])];
}

void insertBeforeMarkedText(NSTextView *view, NSString *text) {
  const NSRange range = [view markedRange];
  NSString *const marked =
      range.location == NSNotFound ? @"" : [[view string] substringWithRange:range];
  [view removeMarkedText];
  [view insertText:text];
  [view setMarkedText:marked selectedRange:NSMakeRange([marked length], 0)];
}

}  // namespace

NSString *charactersOfHandledKey() {
  return [NSString stringWithCharacters:&kMarker length:1];
}

void postComposition(CompositionStep step, NSString *text, NSUInteger caret) {
  NSEvent *const event = [NSEvent keyEventWithType:NSKeyDown
                                          location:NSMakePoint(caret, 0)
                                     modifierFlags:0
                                         timestamp:0
                                      windowNumber:[[NSApp keyWindow] windowNumber]
                                           context:nil
                                        characters:text
                       charactersIgnoringModifiers:markerOf(step)
                                         isARepeat:NO
                                           keyCode:0];
  [NSApp postEvent:event atStart:NO];
}

BOOL handleComposition(NSEvent *event) {
  if (isHandledBefore(event)) return YES;
  if (!isComposition(event)) return NO;
  NSTextView *const view = focusedTextView([NSApp keyWindow]);
  NSString *const text = [event characters];
  switch (stepOf(event)) {
    case CompositionStep::Mark:
      mark(view, text, static_cast<NSUInteger>([event locationInWindow].x));
      break;
    case CompositionStep::Insert:
      insertBeforeMarkedText(view, text);
      break;
    case CompositionStep::End:
      [view unmarkText];
      break;
  }
  return YES;
}

Window serverWindow(NSWindow *window) {
  const int number = static_cast<int>([window windowNumber]);
  return reinterpret_cast<Window>([GSServerForWindow(window) windowDevice:number]);
}

NSTextView *focusedTextView(NSWindow *window) {
  id const view = [window firstResponder];
  return [view isKindOfClass:[NSTextView class]] && [view isEditable] ? view : nil;
}
