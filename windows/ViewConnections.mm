#import "windows/ViewConnections.h"

namespace {

/// Whether it is an object that the interface file has created for the application. Where views are
/// connected with each other, as a scroller is with its scroll view, the platform needs it.
bool isController(id object) {
  return object != nil && ![object isKindOfClass:[NSResponder class]] &&
         ![object isKindOfClass:[NSCell class]];
}

void disconnectView(NSView *view) {
  if ([view isKindOfClass:[NSControl class]]) {
    NSControl *const control = static_cast<NSControl *>(view);
    if (isController([control target])) [control setTarget:nil];
  }
  // Text fields, text views, tab views and collection views each declare their own.
  if ([view respondsToSelector:@selector(setDelegate:)]) {
    NSTextView *const delegating = static_cast<NSTextView *>(view);
    if (isController([delegating delegate])) [delegating setDelegate:nil];
  }
}

void disconnectTree(NSView *view) {
  if (view == nil) return;
  disconnectView(view);
  if ([view isKindOfClass:[NSTabView class]]) {
    for (NSTabViewItem *item in [static_cast<NSTabView *>(view) tabViewItems]) {
      disconnectTree([item view]);
    }
    return;  // the shown tab's view is one of its subviews
  }
  if ([view isKindOfClass:[NSCollectionView class]]) {
    disconnectTree([[static_cast<NSCollectionView *>(view) itemPrototype] view]);
  }
  for (NSView *subview in [view subviews]) disconnectTree(subview);
}

}  // namespace

void disconnectViews(NSWindow *window) {
  disconnectTree([window contentView]);
}
