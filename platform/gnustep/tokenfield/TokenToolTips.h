#import <AppKit/AppKit.h>

/// The tool tips of a view's tokens, with their represented strings. Other tool tips of the view
/// are not changed. Main thread only.
@interface TokenToolTips : NSObject {
 @private
  NSArray *_tokens;
  NSArray *_rects;
  NSMutableArray *_tags;
}

/// Replaces the tool tips if tokens or rectangles have changed. layoutManager: has laid out a text
/// with FieldTokens. sight: the visible rectangle of its container. origin: of the container in the
/// view.
- (void)showTokensOf:(NSLayoutManager *)layoutManager
             inSight:(NSRect)sight
                  at:(NSPoint)origin
              ofView:(NSView *)view;

/// Removes all tool tips. To be called before the view is deallocated, because the platform leaks
/// every second one then. view: the same as before.
- (void)removeFromView:(NSView *)view;

@end
