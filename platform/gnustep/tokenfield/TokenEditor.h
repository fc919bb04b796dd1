#import <AppKit/AppKit.h>

@class TokenCompletion;
@class TokenFieldCell;

/// The field editor of one token field. Finished tokens and typed text stand in its text side by
/// side, so selecting, copying, undoing and scrolling treat them alike. Main thread only.
@interface TokenEditor : NSTextView {
 @private
  TokenFieldCell *_cell;
  TokenCompletion *_completion;
  NSUndoManager *_undoManager;
}

/// The cell that owns the editor; not retained. nil when the cell goes away.
- (void)setCell:(TokenFieldCell *)cell;
- (TokenFieldCell *)cell;

/// Starts editing a text, at the place to which the field is scrolled.
- (void)beginWithText:(NSAttributedString *)text scrolledTo:(NSPoint)point;

/// There are this many points for a token now.
- (void)tokenRoomChanged:(CGFloat)width;

/// The half-typed texts become tokens, for good: not an undoable change, as editing ends.
- (void)finishFragments;

/// The text being typed at the caret, without white space around it. Empty range: none.
- (NSRange)fragmentRange;

/// The number of tokens in front of the text being typed.
- (NSInteger)fragmentTokenIndex;

/// Replaces a range by tokens of these editing strings, as one change that can be undone, and puts
/// the caret behind them.
- (void)replaceRange:(NSRange)range withTokensForStrings:(NSArray *)strings;

@end

/// What the user does to tokens, in TokenEditor+Tokens.mm.
@interface TokenEditor (Tokens)

/// The text to put on a pasteboard for a range: its characters as they are, or, with tokens in it,
/// the tokens' editing strings and the typed text, joined by ", ".
- (NSString *)plainTextOfRange:(NSRange)range;

/// Puts a text in: a list becomes tokens, anything else is typed text.
- (void)insertPastedText:(NSString *)text;

@end
