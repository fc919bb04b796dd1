#import <AppKit/AppKit.h>

#import "platform/gnustep/runtime/MethodReplacement.h"

namespace {

constinit platform::ReplacedMethod<id(NSRect, NSUInteger, NSBackingStoreType, BOOL)> platformInit;

/// A window can be made as small as its frame without contents, but the platform subtracts their
/// points from the frame's pixels: on a scaled screen a list of three lines would be as high as one
/// of many.
id initWithSmallestSize(id self, SEL selector, NSRect content, NSUInteger style,
                        NSBackingStoreType backing, BOOL isDeferred) {
  NSWindow *const window = platformInit(self, selector, content, style, backing, isDeferred);
  const CGFloat scale = [window userSpaceScaleFactor];
  if (scale == 1) return window;
  const NSSize frame = [window frame].size;
  [window setMinSize:NSMakeSize(frame.width - NSWidth(content) * scale + 1,
                                frame.height - NSHeight(content) * scale + 1)];
  return window;
}

}  // namespace

@interface NSWindow (SmallestSize)
@end

@implementation NSWindow (SmallestSize)

+ (void)load {
  platformInit.install(self, @selector(initWithContentRect:styleMask:backing:defer:),
                       initWithSmallestSize);
}

@end
