#import "platform/gnustep/alerts/AlertSheet.h"

@implementation AlertSheet

- (id)initWithAlert:(NSAlert *)alert delegate:(id)delegate didEndSelector:(SEL)selector {
  if ((self = [super init])) {
    _alert = [alert retain];
    _delegate = [delegate retain];
    _didEndSelector = selector;
  }
  return self;
}

- (void)dealloc {
  [_delegate release];
  [_alert release];
  [super dealloc];
}

- (void)panelDidEnd:(NSWindow *)panel
         returnCode:(NSInteger)returnCode
        contextInfo:(void *)contextInfo {
  (void)panel;
  if (_didEndSelector == nullptr || ![_delegate respondsToSelector:_didEndSelector]) return;
  using DidEnd = void (*)(id, SEL, NSAlert *, NSInteger, void *);
  const auto didEnd = reinterpret_cast<DidEnd>([_delegate methodForSelector:_didEndSelector]);
  didEnd(_delegate, _didEndSelector, _alert, returnCode, contextInfo);
}

@end
