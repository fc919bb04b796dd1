#import "platform/gnustep/alerts/AlertTextBlock.h"

#import "platform/gnustep/alerts/AlertText.h"

namespace {

constexpr CGFloat kMessageSize = 13;
constexpr CGFloat kInformationSize = 11;
constexpr CGFloat kGap = 8;
/// Between the texts and their scroller.
constexpr CGFloat kScrollerGap = 4;

}  // namespace

/// The texts themselves, one below the other.
@interface AlertTextColumn : NSView
- (id)initWithTexts:(NSArray *)texts width:(CGFloat)width;
@end

@implementation AlertTextColumn

- (id)initWithTexts:(NSArray *)texts width:(CGFloat)width {
  if ((self = [super initWithFrame:NSZeroRect])) {
    CGFloat height = 0;
    for (AlertText *text in texts) {
      const CGFloat own = [text heightForWidth:width];
      // An empty text stays in the view, so that it can be found, and has no height.
      if (height > 0 && own > 0) height += kGap;
      [text setFrame:NSMakeRect(0, height, width, own)];
      [self addSubview:text];
      height += own;
    }
    [self setFrameSize:NSMakeSize(width, height)];
  }
  return self;
}

- (BOOL)isFlipped {
  return YES;
}

@end

@implementation AlertTextBlock

- (id)initWithMessage:(NSString *)message
          information:(NSString *)information
                width:(CGFloat)width
            maxHeight:(CGFloat)maxHeight {
  if ((self = [super initWithFrame:NSZeroRect])) {
    NSArray *const texts = [NSArray
        arrayWithObjects:[AlertText textWithString:message
                                              font:[NSFont boldSystemFontOfSize:kMessageSize]],
                         [AlertText textWithString:information
                                              font:[NSFont systemFontOfSize:kInformationSize]],
                         nil];
    NSView *view = [self columnOf:texts width:width];
    if (NSHeight([view frame]) > maxHeight) {
      view = [self scrollViewOf:texts frame:NSMakeRect(0, 0, width, maxHeight)];
    }
    [self setFrameSize:[view frame].size];
    [self addSubview:view];
  }
  return self;
}

- (NSView *)columnOf:(NSArray *)texts width:(CGFloat)width {
  return [[[AlertTextColumn alloc] initWithTexts:texts width:width] autorelease];
}

- (NSView *)scrollViewOf:(NSArray *)texts frame:(NSRect)frame {
  NSScrollView *const scrollView = [[[NSScrollView alloc] initWithFrame:frame] autorelease];
  [scrollView setBorderType:NSNoBorder];
  [scrollView setHasVerticalScroller:YES];
  [scrollView setDrawsBackground:NO];
  const CGFloat width = [scrollView contentSize].width - kScrollerGap;
  [scrollView setDocumentView:[self columnOf:texts width:width]];
  return scrollView;
}

@end
