#import <AppKit/AppKit.h>

@class FieldToken;
@class TokenEditor;
@class TokenLayout;
@class TokenToolTips;

/// The class of every NSTokenFieldCell here. Holds the tokens of a token field and the text that is
/// typed between them, and has a field editor of its own.
///
/// Values. stringValue joins the tokens' represented strings and the typed texts by ",", in their
/// order; an empty piece between two separators is kept, so that a list set as "a,,b" or "a," is
/// answered unchanged. objectValue is the array of the represented objects and typed texts. Setting
/// a string, or nil, makes tokens of its pieces; setting an array makes a token of each object.
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

/// Whether the field is being edited by that editor.
- (BOOL)isBeingEdited;

/// Takes the text of the editor, so that the value contains what has been typed.
- (void)takeTextFromEditor;

@end

/// Drawing, in TokenFieldCell+Drawing.mm.
@interface TokenFieldCell (Drawing)

/// The rectangle of the text in the field's coordinates; its height is a whole number of lines.
- (NSRect)titleRectForBounds:(NSRect)bounds;

/// The attributes of typed text.
- (NSDictionary *)textAttributes;

/// Sets the maximum width of tokens. The editor lays out again when it has changed.
- (void)fitTokensInto:(NSRect)titleRect;
- (void)forgetLayout;

/// Scrolls a text that is longer than the field while it is not being edited. Positive: towards the
/// end, in points.
- (void)scrollBy:(CGFloat)distance inBounds:(NSRect)bounds;
- (NSPoint)scrolled;

/// Adds a tool tip with the represented string of each visible token.
- (void)updateToolTipsOfView:(NSView *)view;
/// To be called when the cell is replaced, or before the view is deallocated.
- (void)removeToolTipsOfView:(NSView *)view;

@end

/// The delegate's part, in TokenFieldCell+Delegate.mm. The delegate is that of the cell's field.
@interface TokenFieldCell (Delegate)

/// The token for a typed or chosen text, with the represented object that the delegate answers.
- (FieldToken *)tokenForEditingString:(NSString *)string;
- (FieldToken *)tokenForRepresentedObject:(id)object;

/// Those of the tokens that the delegate accepts at an index.
- (NSArray *)acceptedTokens:(NSArray *)tokens atIndex:(NSUInteger)index;

/// The delegate's completions; nil when it has none. selected: -1, unless the delegate changes it.
- (NSArray *)completionsForSubstring:(NSString *)substring
                        indexOfToken:(NSInteger)index
                            selected:(NSInteger *)selected;

/// The tokens as an attributed string in the field's font.
- (NSAttributedString *)textWithTokens:(NSArray *)tokens;

@end
