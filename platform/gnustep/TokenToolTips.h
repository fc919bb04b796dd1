#import <AppKit/AppKit.h>

/// The tool tips over a view's tokens: each says its token's represented string. The view's other
/// tool tips stay. Main thread only.
@interface TokenToolTips : NSObject {
 @private
  NSArray *_tokens;
  NSArray *_rects;
  NSMutableArray *_tags;
}

/// Replaces the former ones when anything has changed. tokens: FieldTokens; rects: for each of them
/// an NSValue with its place in the view.
- (void)showTokens:(NSArray *)tokens inRects:(NSArray *)rects ofView:(NSView *)view;

@end
