#import <AppKit/AppKit.h>

/// The delegate of a token field, as macOS 10.6 declares it.
@protocol NSTokenFieldDelegate <NSTextFieldDelegate>
@optional

/// The completions for the text being typed, which would become the token at tokenIndex. The item
/// at *selectedIndex is highlighted at first; -1, its value before the call, for none. Called once
/// for each change, on the main thread, when nothing else has been typed since. The array is
/// retained and only its visible rows are read.
- (NSArray *)tokenField:(NSTokenField *)tokenField
    completionsForSubstring:(NSString *)substring
               indexOfToken:(NSInteger)tokenIndex
        indexOfSelectedItem:(NSInteger *)selectedIndex;

/// The represented object of a token; nil: the text itself.
- (id)tokenField:(NSTokenField *)tokenField
    representedObjectForEditingString:(NSString *)editingString;

/// What a token shows; nil: its represented string.
- (NSString *)tokenField:(NSTokenField *)tokenField
    displayStringForRepresentedObject:(id)representedObject;

/// The text to edit; nil: what was typed or chosen.
- (NSString *)tokenField:(NSTokenField *)tokenField
    editingStringForRepresentedObject:(id)representedObject;

/// The objects that are accepted as tokens.
- (NSArray *)tokenField:(NSTokenField *)tokenField
       shouldAddObjects:(NSArray *)tokens
                atIndex:(NSUInteger)index;

@end

/// The behaviour that the platform's token field lacks: tokens, tokenizing characters and
/// completion. A category, so that it is the field of every interface file and of every subclass.
/// The field's cell (TokenFieldCell.h) has the values.
@interface NSTokenField (Tokens)

/// Makes tokens of the typed texts. Called when editing ends.
- (void)finishTokens;

@end
