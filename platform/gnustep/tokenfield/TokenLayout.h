#import <AppKit/AppKit.h>

/// The layout of a token field's text while it is not being edited. Main thread only.
@interface TokenLayout : NSObject {
 @private
  NSTextStorage *_text;
  NSLayoutManager *_layoutManager;
  NSTextContainer *_container;
}

/// width: points to wrap at; 0 for one endless line.
- (id)initWithText:(NSAttributedString *)text width:(CGFloat)width;

- (NSSize)size;

/// Draws the lines that intersect a rectangle. Both are in the coordinates of the focused view.
- (void)drawAtPoint:(NSPoint)origin inRect:(NSRect)rect;

- (NSLayoutManager *)layoutManager;

@end

/// Makes the layout manager break its lines between tokens.
void breakLinesBetweenTokens(NSLayoutManager *layoutManager);

/// The rectangle of the token at this character, in the coordinates of the container.
NSRect tokenRect(NSLayoutManager *layoutManager, NSUInteger index);

/// The characters that are laid out in a rectangle of the container.
NSRange charactersInRect(NSLayoutManager *layoutManager, NSRect rect);

/// The character whose token is at this point of the container; NSNotFound when there is none.
NSUInteger tokenIndexAtPoint(NSLayoutManager *layoutManager, NSPoint point);
