#import "platform/gnustep/TokenToolTips.h"

#import "platform/gnustep/FieldToken.h"

@implementation TokenToolTips

- (void)dealloc {
  [_tokens release];
  [_rects release];
  [_tags release];
  [super dealloc];
}

- (void)showTokens:(NSArray *)tokens inRects:(NSArray *)rects ofView:(NSView *)view {
  // Unchanged ones must stay: replacing a tool tip takes it off the screen.
  if ([tokens isEqual:_tokens] && [rects isEqual:_rects]) return;
  for (NSNumber *tag in _tags) [view removeToolTip:[tag integerValue]];
  [_tags release];
  _tags = [[NSMutableArray alloc] init];
  for (NSUInteger i = 0; i < [tokens count]; ++i) {
    // The owner of a tool tip may be its text.
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
