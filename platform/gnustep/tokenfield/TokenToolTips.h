#import <AppKit/AppKit.h>

/// The tool tips over a view's tokens: each says its token's represented string. The view's other
/// tool tips stay. Main thread only.
@interface TokenToolTips : NSObject {
 @private
  NSArray *_tokens;
  NSArray *_rects;
  NSMutableArray *_tags;
}

/// Replaces the former ones when anything has changed.
/// layoutManager: has laid out a text with FieldTokens. sight: what is seen of its container.
/// origin: where the container's upper left corner is in the view.
- (void)showTokensOf:(NSLayoutManager *)layoutManager
             inSight:(NSRect)sight
                  at:(NSPoint)origin
              ofView:(NSView *)view;

/// Takes them all away: to be called before the view ends, because the platform forgets to give
/// back every second one then. view: the one that they were shown over.
- (void)removeFromView:(NSView *)view;

@end
