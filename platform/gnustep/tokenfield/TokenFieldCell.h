#import <AppKit/AppKit.h>

@class FieldToken;
@class TokenEditor;
@class TokenLayout;
@class TokenToolTips;

/// What every NSTokenFieldCell is here: the cell that holds a token field's tokens and whatever is
/// typed between them, and lends the field an editor of its own.
///
/// Values. stringValue joins the tokens' represented strings and the typed rest with ",", in their
/// order; an empty piece between two separators stays one, so a list set as "a,,b" or "a," is
/// answered as it was set. objectValue is the array of the represented objects and typed rests.
/// Setting a string, or nil, makes tokens of its pieces; setting an array makes one of each object.
@interface TokenFieldCell : NSTokenFieldCell {
 @private
  NSAttributedString *_tokenText;
  TokenEditor *_editor;
  TokenLayout *_layout;
  TokenToolTips *_toolTips;
  NSSize _layoutSize;
  NSPoint _scrolled;
  CGFloat _tokenRoom;
}

/// Tokens as attached FieldTokens, everything else as plain text. Never nil.
- (NSAttributedString *)tokenText;
- (void)setTokenText:(NSAttributedString *)text;

/// The cell's own editor, as macOS asks a cell for one. Made when first asked for.
- (NSTextView *)fieldEditorForView:(NSView *)view;

/// Whether that editor is at work in the field.
- (BOOL)isBeingEdited;

/// Takes what the editor holds, so that nothing typed is lost when the value is asked for.
- (void)takeTextFromEditor;

@end

/// Drawing, in TokenFieldCell+Drawing.mm.
@interface TokenFieldCell (Drawing)

/// Where the text is, in the field's coordinates; its height is a whole number of lines.
- (NSRect)titleRectForBounds:(NSRect)bounds;

/// How typed text looks.
- (NSDictionary *)textAttributes;

/// Tells the tokens how much room there is. The editor lays out again when it has changed.
- (void)fitTokensInto:(NSRect)titleRect;
- (void)forgetLayout;

/// Shows another part of a text that is longer than the field, while nobody edits it. Positive:
/// towards the end, in points.
- (void)scrollBy:(CGFloat)distance inBounds:(NSRect)bounds;
- (NSPoint)scrolled;

/// Says each token's represented string where the token is in sight.
- (void)updateToolTipsOfView:(NSView *)view;
/// When it is no longer the view's cell, or the view ends.
- (void)removeToolTipsOfView:(NSView *)view;

@end

/// The delegate's part, in TokenFieldCell+Delegate.mm. The delegate is that of the cell's field.
@interface TokenFieldCell (Delegate)

/// The token for a typed or chosen text; the delegate says what it stands for.
- (FieldToken *)tokenForEditingString:(NSString *)string;
- (FieldToken *)tokenForRepresentedObject:(id)object;

/// Those that the delegate lets in at a place among the field's tokens.
- (NSArray *)acceptedTokens:(NSArray *)tokens atIndex:(NSUInteger)index;

/// The delegate's completions; nil when it has none. selected: -1, unless the delegate changes it.
- (NSArray *)completionsForSubstring:(NSString *)substring
                        indexOfToken:(NSInteger)index
                            selected:(NSInteger *)selected;

/// The tokens as text in the field's font, ready to be put into its text.
- (NSAttributedString *)textWithTokens:(NSArray *)tokens;

@end
