#import <AppKit/AppKit.h>

@class TokenCompletion;
@class TokenFieldCell;

/// The field editor of one token field. Its text contains finished tokens and typed text, so that
/// selecting, copying, undoing and scrolling work for both. Main thread only.
@interface TokenEditor : NSTextView {
 @private
  TokenFieldCell *_cell;
  TokenCompletion *_completion;
  NSUndoManager *_undoManager;
}

/// The cell that owns the editor; not retained. nil when the cell is deallocated.
- (void)setCell:(TokenFieldCell *)cell;
- (TokenFieldCell *)cell;

/// Begins editing a text, scrolled as the field is.
- (void)beginWithText:(NSAttributedString *)text scrolledTo:(NSPoint)point;

/// The maximum width of a token has changed, in points.
- (void)tokenRoomChanged:(CGFloat)width;

/// Makes tokens of the typed texts. Cannot be undone, because editing ends.
- (void)finishFragments;

/// The text being typed at the caret, without white space around it. Empty range: none.
- (NSRange)fragmentRange;

/// The number of tokens in front of the text being typed.
- (NSInteger)fragmentTokenIndex;

/// Replaces a range by tokens of these editing strings, as one change that can be undone, and puts
/// the caret behind them.
- (void)replaceRange:(NSRange)range withTokensForStrings:(NSArray *)strings;

@end

/// Selecting, editing, copying and pasting tokens, in TokenEditor+Tokens.mm.
@interface TokenEditor (Tokens)

/// The text to put on a pasteboard for a range: its characters as they are, or, with tokens in it,
/// the tokens' editing strings and the typed text, joined by ", ".
- (NSString *)plainTextOfRange:(NSRange)range;

/// Inserts a text: a list becomes tokens, anything else is typed text.
- (void)insertPastedText:(NSString *)text;

@end
