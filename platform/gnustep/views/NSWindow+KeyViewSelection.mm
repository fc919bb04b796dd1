#import <AppKit/AppKit.h>

#import "platform/gnustep/runtime/MethodReplacement.h"
#import "platform/gnustep/views/NSCollectionView+Keyboard.h"

// When Tab moves the keyboard on, the Mac scrolls to the view that gets it, and the items of
// collection views that are out of sight belong to the key view loop. Where the initial first
// responder of a window refuses to be first responder, the Mac takes the next one that does not.

namespace {

constinit platform::ReplacedMethod<void(id)> platformSelectNext;
constinit platform::ReplacedMethod<void(id)> platformSelectPrevious;
constinit platform::ReplacedMethod<void(NSView *)> platformSelectFollowing;
constinit platform::ReplacedMethod<void(NSView *)> platformSelectPreceding;
constinit platform::ReplacedMethod<void()> platformBecomeKeyWindow;

void addCollectionViews(NSView *view, NSMutableArray *collections) {
  if ([view isHidden]) return;
  if ([view isKindOfClass:[NSCollectionView class]]) return [collections addObject:view];
  for (NSView *subview in [view subviews]) addCollectionViews(subview, collections);
}

NSView *viewWithKeyboard(NSWindow *window) {
  id const responder = [window firstResponder];
  return [responder isKindOfClass:[NSView class]] ? responder : nil;
}

}  // namespace

@interface NSWindow (KeyViewSelection)
@end

@implementation NSWindow (KeyViewSelection)

+ (void)load {
  platformSelectNext.install(self, @selector(selectNextKeyView:),
                             @selector(selectNextKeyViewAndScroll:));
  platformSelectPrevious.install(self, @selector(selectPreviousKeyView:),
                                 @selector(selectPreviousKeyViewAndScroll:));
  platformSelectFollowing.install(self, @selector(selectKeyViewFollowingView:),
                                  @selector(selectKeyViewFollowingViewAndScroll:));
  platformSelectPreceding.install(self, @selector(selectKeyViewPrecedingView:),
                                  @selector(selectKeyViewPrecedingViewAndScroll:));
  platformBecomeKeyWindow.install(self, @selector(becomeKeyWindow),
                                  @selector(becomeKeyWindowWithFirstResponder));
}

- (void)selectNextKeyViewAndScroll:(id)sender {
  [self prepareKeyViewsAround:viewWithKeyboard(self)];
  platformSelectNext(self, _cmd, sender);
  [self scrollFirstResponderToVisible];
}

- (void)selectPreviousKeyViewAndScroll:(id)sender {
  [self prepareKeyViewsAround:viewWithKeyboard(self)];
  platformSelectPrevious(self, _cmd, sender);
  [self scrollFirstResponderToVisible];
}

- (void)selectKeyViewFollowingViewAndScroll:(NSView *)view {
  [self prepareKeyViewsAround:view];
  platformSelectFollowing(self, _cmd, view);
  [self scrollFirstResponderToVisible];
}

- (void)selectKeyViewPrecedingViewAndScroll:(NSView *)view {
  [self prepareKeyViewsAround:view];
  platformSelectPreceding(self, _cmd, view);
  [self scrollFirstResponderToVisible];
}

- (void)becomeKeyWindowWithFirstResponder {
  platformBecomeKeyWindow(self, _cmd);
  if ([self firstResponder] == self && [self initialFirstResponder] != nil) {
    [self selectKeyViewFollowingView:[self initialFirstResponder]];
  }
}

- (void)prepareKeyViewsAround:(NSView *)view {
  NSMutableArray *const collections = [NSMutableArray array];
  addCollectionViews([self contentView], collections);
  for (NSCollectionView *collection in collections) [collection prepareKeyViewsAround:view];
}

- (void)scrollFirstResponderToVisible {
  NSView *const view = viewWithKeyboard(self);
  for (NSView *around = [view superview]; around != nil; around = [around superview]) {
    if ([around isKindOfClass:[NSCollectionView class]]) {
      [static_cast<NSCollectionView *>(around) scrollItemAroundToVisible:view];
    }
  }
}

@end
