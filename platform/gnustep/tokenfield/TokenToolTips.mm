#import "platform/gnustep/tokenfield/TokenToolTips.h"

#import "platform/gnustep/tokenfield/FieldToken.h"
#import "platform/gnustep/tokenfield/TokenLayout.h"

@implementation TokenToolTips

- (void)dealloc {
  [_tokens release];
  [_rects release];
  [_tags release];
  [super dealloc];
}

- (void)showTokensOf:(NSLayoutManager *)layoutManager
             inSight:(NSRect)sight
                  at:(NSPoint)origin
              ofView:(NSView *)view {
  NSMutableArray *const tokens = [NSMutableArray array];
  NSMutableArray *const rects = [NSMutableArray array];
  const NSRange characters = charactersInRect(layoutManager, sight);
  for (NSUInteger i = characters.location; i < NSMaxRange(characters); ++i) {
    FieldToken *const token = tokenAt([layoutManager textStorage], i);
    if (token == nil) continue;
    const NSRect seen = NSIntersectionRect(tokenRect(layoutManager, i), sight);
    if (NSIsEmptyRect(seen)) continue;
    [tokens addObject:token];
    [rects addObject:[NSValue valueWithRect:NSOffsetRect(seen, origin.x, origin.y)]];
  }
  [self showTokens:tokens inRects:rects ofView:view];
}

- (void)removeFromView:(NSView *)view {
  [self showTokens:@[] inRects:@[] ofView:view];
}

- (void)showTokens:(NSArray *)tokens inRects:(NSArray *)rects ofView:(NSView *)view {
  // Unchanged ones are kept, because replacing a tool tip hides it.
  if ([tokens isEqual:_tokens] && [rects isEqual:_rects]) return;
  for (NSNumber *tag in _tags) [view removeToolTip:[tag integerValue]];
  [_tags release];
  _tags = [[NSMutableArray alloc] init];
  for (NSUInteger i = 0; i < [tokens count]; ++i) {
    // The owner of a tool tip may be a string, which is its text.
    NSString *const tip = [[tokens objectAtIndex:i] representedString];
    const NSToolTipTag tag = [view addToolTipRect:[[rects objectAtIndex:i] rectValue]
                                            owner:tip
                                         userData:NULL];
    [_tags addObject:[NSNumber numberWithInteger:tag]];
  }
  [_tokens autorelease];
  _tokens = [tokens copy];
  [_rects autorelease];
  _rects = [rects copy];
}

@end
