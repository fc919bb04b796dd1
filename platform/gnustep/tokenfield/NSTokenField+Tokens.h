#import <AppKit/AppKit.h>

/// The delegate of a token field, as macOS 10.6 declares it.
@protocol NSTokenFieldDelegate <NSTextFieldDelegate>
@optional

/// What to offer for the text being typed; the index of the token that it would become. The item
/// at *selectedIndex is highlighted at first; -1 for none, which is also what it is before the
/// call. Asked once a change, on the main thread, when nothing else has been typed since. The list
/// keeps the array and reads the rows in sight from it.
- (NSArray *)tokenField:(NSTokenField *)tokenField
    completionsForSubstring:(NSString *)substring
               indexOfToken:(NSInteger)tokenIndex
        indexOfSelectedItem:(NSInteger *)selectedIndex;

/// What a finished text stands for; nil: for itself.
- (id)tokenField:(NSTokenField *)tokenField
    representedObjectForEditingString:(NSString *)editingString;

/// What a token shows; nil: its represented string.
- (NSString *)tokenField:(NSTokenField *)tokenField
    displayStringForRepresentedObject:(id)representedObject;

/// The text to edit; nil: what was typed or chosen.
- (NSString *)tokenField:(NSTokenField *)tokenField
    editingStringForRepresentedObject:(id)representedObject;

/// Those of the objects that may become tokens.
- (NSArray *)tokenField:(NSTokenField *)tokenField
       shouldAddObjects:(NSArray *)tokens
                atIndex:(NSUInteger)index;

@end

/// The behaviour that the platform's token field lacks: tokens, tokenizing characters and
/// completion. A category, so that it is the field of every interface file and of every subclass.
/// The field's cell (TokenFieldCell.h) has the values.
@interface NSTokenField (Tokens)

/// Makes the half-typed texts tokens. Called when editing ends.
- (void)finishTokens;

@end
