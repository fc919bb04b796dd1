#import <AppKit/AppKit.h>

/// A token field's text laid out to be looked at, while nobody edits it. Main thread only.
@interface TokenLayout : NSObject {
 @private
  NSTextStorage *_text;
  NSLayoutManager *_layoutManager;
  NSTextContainer *_container;
}

/// width: points to wrap at; 0 for one endless line.
- (id)initWithText:(NSAttributedString *)text width:(CGFloat)width;

- (NSSize)size;

/// Draws the lines that meet a rectangle. Both in the coordinates of the view that is drawn into.
- (void)drawAtPoint:(NSPoint)origin inRect:(NSRect)rect;

- (NSLayoutManager *)layoutManager;

@end

/// Makes the layout manager break its lines between tokens.
void breakLinesBetweenTokens(NSLayoutManager *layoutManager);

/// Where the token of this character is, from the container's upper left corner.
NSRect tokenRect(NSLayoutManager *layoutManager, NSUInteger index);

/// The characters that are laid out in a rectangle of the container.
NSRange charactersInRect(NSLayoutManager *layoutManager, NSRect rect);

/// The character whose token is at this point of the container; NSNotFound when there is none.
NSUInteger tokenIndexAtPoint(NSLayoutManager *layoutManager, NSPoint point);
